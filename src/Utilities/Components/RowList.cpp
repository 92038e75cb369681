#include "RowList.h"

#include <QFocusEvent>
#include <QScrollArea>
#include <QScrollBar>

namespace {

constexpr int inset = 6;
/// On the side of the scroll bar: as much room as the bar takes, so that its thumb touches no row.
constexpr int besideBar = 12;
/// What the page shows above or below the current row, at least.
constexpr int pageMargin = 8;

} // namespace

RowList::RowList(const QString& label, ListRowDelegate::Reader reader,
    const ListRowDelegate::Options& options, QWidget* parent)
    : QListView(parent), delegate_(new ListRowDelegate(std::move(reader), options, this))
{
    setAccessibleName(label);
    setItemDelegate(delegate_);
    setFrameShape(QFrame::NoFrame);
    connect(verticalScrollBar(), &QScrollBar::rangeChanged, this, &RowList::makeRoom);
    makeRoom();
    viewport()->setAutoFillBackground(false);
    viewport()->setAttribute(Qt::WA_Hover);
    setMouseTracking(true);
    setUniformItemSizes(true);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTabKeyNavigation(false);
    if (options.onlyRead) {
        setSelectionMode(NoSelection);
        setFocusPolicy(Qt::NoFocus);
    }
}

void RowList::setShowsAllRows(bool showsAll)
{
    showsAllRows_ = showsAll;
    setVerticalScrollBarPolicy(showsAll ? Qt::ScrollBarAlwaysOff : Qt::ScrollBarAsNeeded);
    makeRoom();
    setSizePolicy(QSizePolicy::Expanding, showsAll ? QSizePolicy::Fixed : QSizePolicy::Expanding);
    updateGeometry();
}

/// Around the rows.
void RowList::makeRoom()
{
    if (showsAllRows_)
        return setViewportMargins(0, 0, 0, 0);
    const int trailing = verticalScrollBar()->maximum() > 0 ? besideBar : inset;
    setViewportMargins(inset, inset, trailing, 0);
}

void RowList::setModel(QAbstractItemModel* model)
{
    if (this->model())
        disconnect(this->model(), nullptr, this, nullptr);
    QListView::setModel(model);
    updateGeometry();
    if (!model)
        return;
    const auto resize = [this] { updateGeometry(); };
    connect(model, &QAbstractItemModel::rowsInserted, this, resize);
    connect(model, &QAbstractItemModel::rowsRemoved, this, resize);
    connect(model, &QAbstractItemModel::modelReset, this, resize);
}

QSize RowList::sizeHint() const
{
    if (!showsAllRows_ || !model())
        return QListView::sizeHint();
    const int row = itemDelegate()->sizeHint({}, {}).height();
    return {200, row * model()->rowCount()};
}

QSize RowList::minimumSizeHint() const
{
    return showsAllRows_ ? QSize(120, sizeHint().height()) : QSize(120, 0);
}

/// The page that a widget scrolls with; null when there is none.
static QScrollArea* pageOf(const QWidget* widget)
{
    for (QWidget* around = widget->parentWidget(); around; around = around->parentWidget()) {
        if (auto* page = qobject_cast<QScrollArea*>(around))
            return page;
    }
    return nullptr;
}

void RowList::scrollTo(const QModelIndex& index, ScrollHint hint)
{
    if (!showsAllRows_)
        return QListView::scrollTo(index, hint);
    QScrollArea* page = hasFocus() ? pageOf(this) : nullptr;
    if (!page)
        return;
    const QRect row = visualRect(index);
    const QPoint middle = viewport()->mapTo(page->widget(), row.center());
    page->ensureVisible(middle.x(), middle.y(), 0, row.height() / 2 + pageMargin);
}

void RowList::resizeEvent(QResizeEvent* event)
{
    QListView::resizeEvent(event);
    if (delegate_->setWidth(viewport()->width())) {
        setUniformItemSizes(!delegate_->wraps());
        scheduleDelayedItemsLayout();
        updateGeometry();
    }
}

void RowList::focusInEvent(QFocusEvent* event)
{
    const bool comesBack
        = event->reason() == Qt::ActiveWindowFocusReason || event->reason() == Qt::PopupFocusReason;
    if (!comesBack)
        showFocus(event->reason() != Qt::MouseFocusReason);
    QListView::focusInEvent(event);
    const bool nothingCurrent = !currentIndex().isValid() && model() && model()->rowCount() > 0;
    if (nothingCurrent && event->reason() != Qt::MouseFocusReason)
        selectionModel()->setCurrentIndex(model()->index(0, 0), QItemSelectionModel::NoUpdate);
}

void RowList::keyPressEvent(QKeyEvent* event)
{
    showFocus(true);
    QListView::keyPressEvent(event);
}

void RowList::mousePressEvent(QMouseEvent* event)
{
    showFocus(false);
    QListView::mousePressEvent(event);
}

void RowList::showFocus(bool shows)
{
    delegate_->setShowsFocus(shows);
    viewport()->update();
}
