#pragma once

#include <QAbstractTableModel>
#include <QDate>

/// The days of a month as a table of weeks that begin on Sunday. Cells before the first and after the last
/// day are empty.
class MonthModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Role
    {
        DateRole = Qt::UserRole,
        ChosenRole,
        TodayRole
    };

    using QAbstractTableModel::QAbstractTableModel;

    void setDates(const QDate& chosen, const QDate& earliest, const QDate& today);
    void setMonthOf(const QDate& date);

    QDate month() const { return first_; }
    QDate earliest() const { return earliest_; }
    bool isAllowed(const QDate& date) const { return date.isValid() && date >= earliest_; }
    QDate dateAt(const QModelIndex& index) const;
    QModelIndex indexOf(const QDate& date) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    int blanksBefore() const;

    QDate first_;
    QDate chosen_;
    QDate earliest_;
    QDate today_;
};
