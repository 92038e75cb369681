#pragma once

#include <QDate>
#include <QTableView>

class MonthModel;

/// The days of one month in rows of weeks. Arrow keys move by a day or a week, Page Up and Page Down by a
/// month, Home and End to its ends; Return, Space or a click picks the day.
class MonthGrid : public QTableView
{
    Q_OBJECT

public:
    explicit MonthGrid(QWidget* parent = nullptr);

    /// Shows the month of `chosen`.
    /// \param earliest  days before cannot be picked
    /// \param today  is outlined
    void setDates(const QDate& chosen, const QDate& earliest, const QDate& today);
    void showMonthOf(const QDate& date);

    /// The first day of the month that is shown.
    QDate month() const;
    QDate earliest() const;
    /// The day that the keyboard is at.
    QDate current() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

signals:
    void monthChanged();
    void picked(const QDate& date);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void moveTo(const QDate& date);
    void pick(const QModelIndex& index);

    MonthModel* days_;
};
