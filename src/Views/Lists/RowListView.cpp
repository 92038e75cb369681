#include "Lists/RowListView.h"

#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QScrollBar>

ListRow listRow(const QModelIndex& index)
{
    ListRow row;
    row.title = index.data(RowListModel::TitleRole).toString();
    row.lines = QStringList{index.data(RowListModel::SecondaryRole).toString()};
    row.metaSymbol = index.data(RowListModel::MetaIconRole).toString();
    row.meta = index.data(RowListModel::MetaRole).toString();
    row.chip = row.metaSymbol;
    row.isIdle = index.data(RowListModel::IdleRole).toBool();
    row.trailing = index.data(RowListModel::TrailingRole).toString();
    row.pill = index.data(RowListModel::PillRole).toString();
    return row;
}

ListRowDelegate::Options recordRows()
{
    ListRowDelegate::Options options;
    options.metaLine = true;
    options.wraps = true;
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
    if (!reached_)
        showSelection();
}

void RowListView::showSelection()
{
    const QScopedValueRollback<bool> showing(showing_, true);
    const std::optional<qint64> id = reached_ ? reached_ : selectedId_;
    const int row = id ? rows_.rowOf(*id) : -1;
    if (row >= 0)
        setCurrentIndex(rows_.index(row));
    else
        setCurrentIndex({});
}

void RowListView::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    RowList::currentChanged(current, previous);
    if (showing_ || !current.isValid())
        return;
    reached_ = current.data(RowListModel::IdRole).toLongLong();
    if (!moving_)
        rest();
}

/// The person has come to a row and stays there. Asked for only now that the list is done with the event that
/// led there, so that it may be told of another selection.
void RowListView::rest()
{
    if (const std::optional<qint64> id = std::exchange(reached_, std::nullopt))
        emit chosen(*id);
}

void RowListView::keyPressEvent(QKeyEvent* event)
{
    {
        const QScopedValueRollback<bool> moving(moving_, true);
        RowList::keyPressEvent(event);
    }
    if (!event->isAutoRepeat())
        rest();
}

void RowListView::keyReleaseEvent(QKeyEvent* event)
{
    RowList::keyReleaseEvent(event);
    if (!event->isAutoRepeat())
        rest();
}

void RowListView::mousePressEvent(QMouseEvent* event)
{
    {
        const QScopedValueRollback<bool> moving(moving_, true);
        RowList::mousePressEvent(event);
    }
    rest();
}

void RowListView::mouseMoveEvent(QMouseEvent* event)
{
    const QScopedValueRollback<bool> moving(moving_, true);
    RowList::mouseMoveEvent(event);
}

void RowListView::mouseReleaseEvent(QMouseEvent* event)
{
    {
        const QScopedValueRollback<bool> moving(moving_, true);
        RowList::mouseReleaseEvent(event);
    }
    rest();
}

void RowListView::focusOutEvent(QFocusEvent* event)
{
    RowList::focusOutEvent(event);
    rest();
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
