#include "SoftDivider.h"

#include "Palette.h"

#include <QPainter>

#include <cmath>

SoftDivider::SoftDivider(QWidget* parent) : QWidget(parent)
{
    setFixedHeight(1);
}

void SoftDivider::paintEvent(QPaintEvent*)
{
    const double ratio = devicePixelRatioF();
    const double top = mapTo(window(), QPoint()).y() * ratio;
    // On a screen with a fraction of a pixel more, equally thick lines would come out now thin, now thick.
    const double snapped = (std::ceil(top) - top) / ratio;
    const double thickness = std::floor(ratio) / ratio;
    QPainter(this).fillRect(QRectF(0, snapped, width(), thickness), Palette::color(Brand::line));
}
