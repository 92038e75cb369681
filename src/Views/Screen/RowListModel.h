#pragma once

#include "Screen/SearchIndex.h"

#include <QAbstractListModel>

#include <functional>

/// The texts of one list row, derived once when the list is loaded.
struct RowTexts
{
    qint64 id = 0;
    QString title;
    QString secondary; ///< the line under the title
    QString metaIcon; ///< symbol before the third line, or in the chip of a list that has chips
    QString meta; ///< the third line
    QString trailing; ///< a word at the end of the last line
    QString pill; ///< status word; no pill when empty
    bool isIdle = false; ///< whom or what the row stands for is out of use
    QString search; ///< what the search box looks into, in any letter case
    QString filter; ///< what the list's picker compares
};

/// Rows for a list view: all of them in load order, of which those are shown that pass the search and the
/// picker. Rows are replaced in one step; a search only picks indices.
class RowListModel : public QAbstractListModel
{
    Q_OBJECT

public:
    enum Role
    {
        TitleRole = Qt::DisplayRole,
        IdRole = Qt::UserRole,
        SecondaryRole,
        MetaIconRole,
        MetaRole,
        PillRole,
        TrailingRole,
        IdleRole,
    };

    /// Rows with their search texts, ready to be shown. Can be made on any thread.
    struct Content
    {
        QList<RowTexts> rows;
        SearchIndex index;

        static Content of(QList<RowTexts> rows);
    };

    using Accepts = std::function<bool(const QString& filter)>;

    void setContent(Content content);
    /// Takes the row of a record that is gone out of the list.
    void remove(qint64 id);
    void setSearch(const QString& search);
    /// \param accepts  says which filter texts pass the picker; an empty function passes all
    void setFilter(Accepts accepts);

    /// The shown rows, as places in the loaded list.
    const QList<int>& shown() const { return shown_; }
    /// The place of a record in the loaded list, shown or not, or -1.
    int placeOf(qint64 id) const;
    /// The record at a place in the loaded list.
    qint64 idAt(int place) const { return content_.rows.at(place).id; }
    /// The shown row of a record, or -1.
    int rowOf(qint64 id) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    void refilter();

    Content content_;
    QString search_;
    Accepts accepts_;
    QList<int> shown_;
};
