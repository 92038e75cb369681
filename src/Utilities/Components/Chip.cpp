#include "Chip.h"

#include "Paint.h"
#include "Palette.h"
#include "Spacing.h"
#include "Symbols.h"

#include <QPainter>

namespace {

/// Of the design, as is what it is asked for.
int usualSymbolEdge(qreal chip)
{
    return chip < 36 ? 16
        : chip < 40  ? 20
        : chip < 44  ? 22
        : chip < 48  ? 24
        : chip < 56  ? 28
        : chip < 64  ? 34
                     : 38;
}

} // namespace

Chip::Chip(const QString& systemImage, int edge, Look look, QWidget* parent)
    : QWidget(parent), symbol_(systemImage), edge_(edge), symbolEdge_(usualSymbolEdge(edge)), look_(look)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void Chip::setSystemImage(const QString& symbol)
{
    symbol_ = symbol;
    update();
}

void Chip::setSymbolEdge(int edge)
{
    symbolEdge_ = edge;
    update();
}

QSize Chip::sizeHint() const
{
    return {Type::scaled(edge_), Type::scaled(edge_)};
}

void Chip::draw(QPainter& painter, const QRectF& box, const QString& symbol, Look look)
{
    draw(painter, box, symbol, look, usualSymbolEdge(box.width() / Type::factor()));
}

void Chip::draw(QPainter& painter, const QRectF& box, const QString& symbol, Look look, int symbolEdge)
{
    const qreal radius = box.width() < 36 ? Radius::control : box.width() < 48 ? Radius::chip : Radius::card;
    auto tone = Brand::blue;
    QBrush fill;
    switch (look) {
    case Look::soft:
        fill = Palette::color(Brand::softBlue);
        break;
    case Look::plain:
        fill = Palette::color(Brand::card);
        break;
    case Look::idle:
        fill = Palette::color(Brand::panel);
        tone = Brand::muted;
        break;
    case Look::onDark:
        fill = Palette::color(Brand::onDarkTitle, Brand::onDarkTileOpacity);
        tone = Brand::onDarkTitle;
        break;
    case Look::dark:
        fill = Palette::darkGradient(box);
        tone = Brand::onDarkTitle;
        break;
    }
    Paint::roundedRect(painter, box, radius, fill);
    const auto edge = Type::scaled(symbolEdge);
    QRectF icon(0, 0, edge, edge);
    icon.moveCenter(box.center());
    Symbols::paint(painter, icon, symbol, Palette::color(tone));
}

void Chip::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    draw(painter, rect(), symbol_, look_, symbolEdge_);
}
