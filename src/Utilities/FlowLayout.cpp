#include "FlowLayout.h"

#include <QStyle>
#include <QWidget>

#include <algorithm>

FlowLayout::FlowLayout(int spacing)
{
    setContentsMargins(0, 0, 0, 0);
    setSpacing(spacing);
}

FlowLayout::~FlowLayout() = default;

void FlowLayout::addItem(QLayoutItem* item)
{
    items_.emplace_back(item);
}

QLayoutItem* FlowLayout::itemAt(int index) const
{
    return index >= 0 && index < count() ? items_[size_t(index)].get() : nullptr;
}

QLayoutItem* FlowLayout::takeAt(int index)
{
    if (index < 0 || index >= count())
        return nullptr;
    const auto place = items_.begin() + index;
    QLayoutItem* item = place->release();
    items_.erase(place);
    return item;
}

/// One place for each item, from left to right; a line is as high as its highest item.
std::vector<QRect> FlowLayout::placesIn(const QRect& area) const
{
    std::vector<QRect> places;
    QPoint next = area.topLeft();
    int lineHeight = 0;
    for (const auto& item : items_) {
        const QSize size = item->sizeHint().boundedTo({std::max(area.width(), 0), QLAYOUTSIZE_MAX});
        if (lineHeight > 0 && next.x() + size.width() > area.x() + area.width()) {
            next = {area.left(), next.y() + lineHeight + spacing()};
            lineHeight = 0;
        }
        places.emplace_back(next, size);
        next.rx() += size.width() + spacing();
        lineHeight = std::max(lineHeight, size.height());
    }
    return places;
}

int FlowLayout::heightForWidth(int width) const
{
    int height = 0;
    for (const QRect& place : placesIn({0, 0, width, 0}))
        height = std::max(height, place.bottom() + 1);
    return height;
}

/// All in one line.
QSize FlowLayout::sizeHint() const
{
    QSize size(0, 0);
    for (const auto& item : items_) {
        const QSize wanted = item->sizeHint();
        size = {size.width() + wanted.width() + (size.width() > 0 ? spacing() : 0),
            std::max(size.height(), wanted.height())};
    }
    return size;
}

QSize FlowLayout::minimumSize() const
{
    QSize size(0, 0);
    for (const auto& item : items_)
        size = size.expandedTo(item->minimumSize());
    return size;
}

void FlowLayout::setGeometry(const QRect& area)
{
    QLayout::setGeometry(area);
    const std::vector<QRect> places = placesIn(area);
    const Qt::LayoutDirection direction
        = parentWidget() ? parentWidget()->layoutDirection() : Qt::LeftToRight;
    for (size_t i = 0; i < places.size(); ++i)
        items_[i]->setGeometry(QStyle::visualRect(direction, area, places[i]));
}
