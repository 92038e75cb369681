#include "LazyColumn.h"

#include "TabOrder.h"

#include <QApplication>
#include <QScopedValueRollback>
#include <QScrollArea>
#include <QScrollBar>

#include <algorithm>

namespace {

/// So many rows cost nothing, and all of them are there.
constexpr qsizetype few = 30;
/// Rows beyond the visible ones, so that Tab finds the next one and a short scroll shows no gap.
constexpr int margin = 2;
constexpr int unknown = -1;

/// The row may be in the middle of reporting something.
void discard(QWidget* row)
{
    row->hide();
    row->deleteLater();
}

int heightOf(const QWidget& row, int width)
{
    return row.hasHeightForWidth() ? row.heightForWidth(width) : row.sizeHint().height();
}

} // namespace

LazyColumn::LazyColumn(QScrollArea& page, int gap, QWidget* parent)
    : QWidget(parent), page_(page), gap_(gap), tops_{0}
{
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setFixedHeight(0);
    const QScrollBar* bar = page_.verticalScrollBar();
    connect(bar, &QScrollBar::valueChanged, this, &LazyColumn::scrolled);
    connect(bar, &QScrollBar::rangeChanged, this, &LazyColumn::rangeChanged);
}

void LazyColumn::setKeys(const QList<Key>& keys)
{
    if (keys == keys_)
        return;
    QHash<Key, qsizetype> places;
    places.reserve(keys.size());
    std::vector<int> heights(static_cast<size_t>(keys.size()), unknown);
    for (qsizetype index = 0; index < keys.size(); ++index) {
        places.insert(keys.at(index), index);
        if (const auto old = places_.constFind(keys.at(index)); old != places_.cend())
            heights[static_cast<size_t>(index)] = heights_[static_cast<size_t>(*old)];
    }
    Anchor kept = anchor();
    if (kept.row >= 0)
        kept.row = places.value(keys_.at(kept.row), std::min(kept.row, keys.size() - 1));
    moveFocusFromRemoved(places);
    for (const Key& key : rows_.keys()) {
        if (!places.contains(key))
            discard(rows_.take(key));
    }
    keys_ = keys;
    places_ = places;
    heights_ = std::move(heights);
    arrange(kept);
}

/// To the next row, or to the last one before; a focus left to itself would end on a button.
void LazyColumn::moveFocusFromRemoved(const QHash<Key, qsizetype>& staying)
{
    const qsizetype focused = focusedRow();
    if (focused < 0 || staying.contains(keys_.at(focused)))
        return;
    const auto stays = [&staying](const Key& key) { return staying.contains(key); };
    auto next = std::find_if(keys_.cbegin() + focused, keys_.cend(), stays);
    if (next == keys_.cend()) {
        const auto before = std::find_if(keys_.crend() - focused, keys_.crend(), stays);
        next = before == keys_.crend() ? keys_.cend() : before.base() - 1;
    }
    if (next == keys_.cend())
        return;
    if (QWidget* row = rows_.value(*next))
        tabStops(row).constFirst()->setFocus(Qt::OtherFocusReason);
}

qsizetype LazyColumn::indexOf(const QWidget* row) const
{
    for (const auto [key, existing] : rows_.asKeyValueRange()) {
        if (existing == row)
            return places_.value(key);
    }
    return -1;
}

qsizetype LazyColumn::focusedRow() const
{
    for (const QWidget* at = QApplication::focusWidget(); at; at = at->parentWidget()) {
        if (at->parentWidget() == this)
            return indexOf(at);
    }
    return -1;
}

int LazyColumn::estimatedHeight(qsizetype, int) const
{
    return typicalHeight_;
}

void LazyColumn::setFollowsEnd(bool follows)
{
    followsEnd_ = follows;
}

void LazyColumn::scrollToEnd()
{
    isAtEnd_ = true;
    page_.verticalScrollBar()->setValue(page_.verticalScrollBar()->maximum());
}

void LazyColumn::reveal(qsizetype index)
{
    isAtEnd_ = false;
    if (!row(index))
        arrange({index, 0});
    const auto at = static_cast<size_t>(index);
    const int above = tops_[at] - viewTop();
    const int below = above + heights_[at] - page_.viewport()->height();
    if (above < 0)
        scrollBy(above);
    else if (below > 0)
        scrollBy(std::min(above, below));
}

bool LazyColumn::revealMore(qsizetype index, int pixels)
{
    const auto at = static_cast<size_t>(index);
    const int above = viewTop() - tops_[at];
    const int below = heights_[at] - above - page_.viewport()->height();
    const int hidden = pixels < 0 ? above : below;
    if (hidden <= 0)
        return false;
    scrollBy(pixels < 0 ? std::max(pixels, -hidden) : std::min(pixels, hidden));
    return true;
}

std::pair<qsizetype, qsizetype> LazyColumn::rowsInView() const
{
    const int top = viewTop();
    return {rowAt(top), rowAt(top + page_.viewport()->height() - 1)};
}

void LazyColumn::scrollBy(int pixels)
{
    QScrollBar* bar = page_.verticalScrollBar();
    bar->setValue(bar->value() + pixels);
}

void LazyColumn::scrolled()
{
    if (arranging_)
        return;
    isAtEnd_ = page_.verticalScrollBar()->value() >= page_.verticalScrollBar()->maximum();
    arrange(anchor());
}

void LazyColumn::rangeChanged()
{
    if (followsEnd_ && isAtEnd_)
        scrollToEnd();
    arrange(anchor());
}

/// Where the view's upper edge is in this column; at its beginning while it is not in the page yet.
int LazyColumn::viewTop() const
{
    const QWidget* view = page_.viewport();
    return view->isAncestorOf(this) ? mapFrom(view, QPoint()).y() : 0;
}

/// The row that covers a line, or the one above it.
qsizetype LazyColumn::rowAt(int y) const
{
    const auto after = std::upper_bound(tops_.begin(), tops_.end() - 1, y);
    return std::max<qsizetype>(after - tops_.begin() - 1, 0);
}

LazyColumn::Anchor LazyColumn::anchor() const
{
    const int top = viewTop();
    if (top <= 0 || keys_.isEmpty())
        return {};
    const qsizetype row = rowAt(top);
    const auto at = static_cast<size_t>(row);
    return {row, double(top - tops_[at]) / std::max(1, tops_[at + 1] - tops_[at])};
}

void LazyColumn::arrange(Anchor anchor)
{
    if (arranging_)
        return;
    const QScopedValueRollback<bool> guard(arranging_, true);
    const int height = this->height();
    if (typicalHeight_ == 0 && !keys_.isEmpty())
        measure({0});
    layOut();
    if (isVisible() && !keys_.isEmpty()) {
        QList<qsizetype> needed = neededRows(restore(anchor));
        while (measure(needed)) {
            layOut();
            needed = neededRows(restore(anchor));
        }
        place(needed);
        const QScrollBar* bar = page_.verticalScrollBar();
        isAtEnd_ = isAtEnd_ || bar->value() >= bar->maximum();
    }
    if (this->height() != height)
        emit heightChanged(this->height());
}

void LazyColumn::layOut()
{
    tops_.resize(heights_.size() + 1);
    for (size_t index = 0; index < heights_.size(); ++index) {
        const int known = heights_[index];
        const int height = known == unknown ? estimatedHeight(static_cast<qsizetype>(index), width()) : known;
        tops_[index + 1] = tops_[index] + height + gap_;
    }
    setFixedHeight(keys_.isEmpty() ? 0 : tops_.back() - gap_);
}

/// \returns where the view's upper edge is then
int LazyColumn::restore(Anchor anchor)
{
    if (followsEnd_ && isAtEnd_) {
        page_.verticalScrollBar()->setValue(page_.verticalScrollBar()->maximum());
    } else if (anchor.row >= 0) {
        const auto at = static_cast<size_t>(anchor.row);
        scrollBy(tops_[at] + qRound(anchor.above * (tops_[at + 1] - tops_[at])) - viewTop());
    }
    return viewTop();
}

/// In ascending order.
QList<qsizetype> LazyColumn::neededRows(int top) const
{
    const qsizetype count = keys_.size();
    QList<qsizetype> needed;
    const auto need = [&needed, count](qsizetype first, qsizetype last) {
        for (qsizetype index = std::max<qsizetype>(first, 0); index <= std::min(last, count - 1); ++index)
            needed += index;
    };
    if (count <= few) {
        need(0, count - 1);
        return needed;
    }
    need(0, 0);
    need(rowAt(top) - margin, rowAt(top + page_.viewport()->height()) + margin);
    if (const qsizetype focused = focusedRow(); focused >= 0)
        need(focused - 1, focused + 1);
    need(count - 1, count - 1);
    std::sort(needed.begin(), needed.end());
    needed.erase(std::unique(needed.begin(), needed.end()), needed.end());
    return needed;
}

/// \returns whether a height is known now that was not
bool LazyColumn::measure(const QList<qsizetype>& needed)
{
    bool hasMeasured = false;
    for (const qsizetype index : needed) {
        QWidget*& row = rows_[keys_.at(index)];
        if (!row)
            row = makeRow(index);
        int& height = heights_[static_cast<size_t>(index)];
        if (height != unknown)
            continue;
        height = heightOf(*row, width());
        typicalHeight_ = height;
        hasMeasured = true;
    }
    return hasMeasured;
}

void LazyColumn::place(const QList<qsizetype>& needed)
{
    QHash<Key, QWidget*> kept;
    // The rows follow where the column is in the Tab order, although it is no stop itself.
    setFocusPolicy(Qt::TabFocus);
    QWidget* previous = this;
    for (const qsizetype index : needed) {
        const auto at = static_cast<size_t>(index);
        QWidget* row = rows_.take(keys_.at(index));
        kept.insert(keys_.at(index), row);
        row->setGeometry(0, tops_[at], width(), heights_[at]);
        row->setVisible(true);
        previous = TabOrder::append(previous, tabStops(row));
    }
    setFocusPolicy(Qt::NoFocus);
    for (QWidget* row : std::as_const(rows_))
        discard(row);
    rows_ = kept;
}

/// Rows that exist may have another height now.
void LazyColumn::rowsChanged()
{
    bool hasChanged = false;
    for (const auto [key, row] : rows_.asKeyValueRange()) {
        int& height = heights_[static_cast<size_t>(places_.value(key))];
        if (height != unknown && height != heightOf(*row, width())) {
            height = unknown;
            hasChanged = true;
        }
    }
    if (hasChanged)
        arrange(anchor());
}

bool LazyColumn::event(QEvent* event)
{
    if (event->type() == QEvent::LayoutRequest)
        rowsChanged();
    return QWidget::event(event);
}

void LazyColumn::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    if (width() == std::exchange(width_, width()))
        return;
    const Anchor kept = anchor();
    std::fill(heights_.begin(), heights_.end(), unknown);
    arrange(kept);
}

void LazyColumn::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    arrange(anchor());
}
