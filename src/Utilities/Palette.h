#pragma once

#include "Brand.h"

#include <QBrush>
#include <QColor>
#include <QPalette>

/// The palette as colours of the scheme that is shown now. Ask while painting, never keep the answer: then a
/// change of scheme re-colours everything at its next repaint.
namespace Palette {

bool isDark();
bool hasHighContrast();
/// These are for BrandStyle alone, which also repaints.
void setDark(bool isDark);
void setHighContrast(bool isHigh);

QColor color(Brand::Tone tone);
QColor color(Brand::Tone tone, double opacity);
/// \param share  how much of `other` goes into `base`, 0 to 1
QColor mix(Brand::Tone base, Brand::Tone other, double share);
/// Of what a field suggests: in every contrast, it must not pass for what somebody has entered.
QColor placeholder();
QColor scrim();

/// The content background, from the top leading to the bottom trailing corner of the area.
QBrush gradient(const QRectF& area);
/// The emphasised panels; the same in both schemes.
QBrush darkGradient(const QRectF& area);

/// What Qt's own painting takes its colours from.
QPalette applicationPalette();

} // namespace Palette
