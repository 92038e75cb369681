#include "Lists/RowListView.h"

#include <QScopedValueRollback>
#include <QScrollBar>

ListRow listRow(const QModelIndex& index)
{
    ListRow row;
    row.title = index.data(RowListModel::TitleRole).toString();
    row.lines = QStringList{index.data(RowListModel::SecondaryRole).toString()};
    row.metaSymbol = index.data(RowListModel::MetaIconRole).toString();
    row.meta = index.data(RowListModel::MetaRole).toString();
    row.pill = index.data(RowListModel::PillRole).toString();
    return row;
}

ListRowDelegate::Options recordRows()
{
    ListRowDelegate::Options options;
    options.metaLine = true;
    return options;
}

RowListView::RowListView(
    const QString& name, RowListModel& rows, const ListRowDelegate::Options& shape, QWidget* parent)
    : RowList(name, listRow, shape, parent), rows_(rows)
{
    setModel(&rows_);
    // The selection forgets everything at a reset, and hears of it later than the view itself.
    connect(&rows_, &QAbstractItemModel::modelReset, this, &RowListView::restore);
}

void RowListView::setSelectedId(std::optional<qint64> id)
{
    selectedId_ = id;
    showSelection();
}

void RowListView::showSelection()
{
    const QScopedValueRollback<bool> showing(showing_, true);
    const int row = selectedId_ ? rows_.rowOf(*selectedId_) : -1;
    if (row >= 0)
        setCurrentIndex(rows_.index(row));
    else
        setCurrentIndex({});
}

void RowListView::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    RowList::currentChanged(current, previous);
    if (!showing_ && current.isValid())
        emit chosen(current.data(RowListModel::IdRole).toLongLong());
}

void RowListView::reset()
{
    const QScopedValueRollback<bool> showing(showing_, true);
    placeBeforeReset_ = verticalScrollBar()->value();
    RowList::reset();
}

/// Other rows in the same list: the place in it and the selected row stay.
void RowListView::restore()
{
    showSelection();
    verticalScrollBar()->setValue(placeBeforeReset_);
}
