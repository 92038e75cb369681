#include "SoftDivider.h"

#include "Palette.h"

#include <QPainter>

SoftDivider::SoftDivider(QWidget* parent) : QWidget(parent)
{
    setFixedHeight(1);
}

void SoftDivider::paintEvent(QPaintEvent*)
{
    QPainter(this).fillRect(rect(), Palette::color(Brand::line));
}
