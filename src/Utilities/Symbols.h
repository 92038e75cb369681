#pragma once

#include "Brand.h"

#include <QIcon>
#include <QPixmap>
#include <QStringList>

class QPainter;

/// Icons by symbol name ("checkmark.seal.fill"). The names and the icons behind them are listed in
/// symbols.txt. A name that is not listed shows a dotted square instead of nothing.
namespace Symbols {

/// Every name that has an icon.
QStringList names();
bool contains(const QString& name);

/// \param size  edge of the square in device-independent pixels
QPixmap pixmap(const QString& name, const QColor& color, int size, qreal devicePixelRatio = 1);
/// Centres the icon in the box; its size is the box's shorter edge.
void paint(QPainter& painter, const QRectF& box, const QString& name, const QColor& color);

/// An icon for menus and such, which is tinted in the current scheme whenever it is painted: with `tone`,
/// blue where it is selected, muted where it is disabled.
QIcon icon(const QString& name, Brand::Tone tone = Brand::steel);

} // namespace Symbols
