#include "Lists/RowListView.h"

#include "Components/ListRow.h"

#include <QScopedValueRollback>
#include <QScrollBar>

RowListView::RowListView(const QString& name, RowListModel& rows, QWidget* parent)
    : QListView(parent), rows_(rows)
{
    setAccessibleName(name);
    setFrameShape(QFrame::NoFrame);
    viewport()->setAutoFillBackground(false);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setUniformItemSizes(true);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setMouseTracking(true);
    setTabKeyNavigation(false);
    setItemDelegate(new ListRowDelegate(this));
    setModel(&rows_);
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
    QListView::currentChanged(current, previous);
    if (!showing_ && current.isValid())
        emit chosen(current.data(RowListModel::IdRole).toLongLong());
}

/// Other rows in the same list: the place in it and the selected row stay.
void RowListView::reset()
{
    const QScopedValueRollback<bool> showing(showing_, true);
    const int place = verticalScrollBar()->value();
    QListView::reset();
    showSelection();
    verticalScrollBar()->setValue(place);
}
