#include "Emblem.h"

#include "Paint.h"
#include "Palette.h"
#include "Symbols.h"
#include "Type.h"

#include <QPainter>

static constexpr int diameter = 72;

Emblem::Emblem(const QString& systemImage, int symbolEdge, QWidget* parent)
    : QWidget(parent), symbol_(systemImage), symbolEdge_(symbolEdge)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void Emblem::setSystemImage(const QString& symbol)
{
    symbol_ = symbol;
    update();
}

QSize Emblem::sizeHint() const
{
    return {Type::scaled(diameter), Type::scaled(diameter)};
}

void Emblem::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    Paint::roundedRect(
        painter, rect(), height() / 2.0, Palette::color(Brand::softBlue), Palette::color(Brand::line));
    QRectF box(0, 0, Type::scaled(symbolEdge_), Type::scaled(symbolEdge_));
    box.moveCenter(QRectF(rect()).center());
    Symbols::paint(painter, box, symbol_, Palette::color(Brand::blue));
}
