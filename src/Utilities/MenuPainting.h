#pragma once

#include <QStyleOption>

/// How BrandStyle draws menus and the menu bar.
namespace MenuPainting {

/// From a menu's outside to its entries: its line and some room.
inline constexpr int inset = 7;

void panel(QPainter& painter, const QRect& area);
void item(QPainter& painter, const QStyleOptionMenuItem& option);
QSize itemSize(const QStyleOptionMenuItem& option, const QSize& textSize);

void barItem(QPainter& painter, const QStyleOptionMenuItem& option);
QSize barItemSize(const QSize& textSize);

} // namespace MenuPainting
