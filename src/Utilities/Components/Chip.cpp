#include "Chip.h"

#include "Paint.h"
#include "Palette.h"
#include "Spacing.h"
#include "Symbols.h"

#include <QPainter>

namespace {

int symbolEdge(qreal chip)
{
    const auto unscaled = chip / Type::factor();
    return Type::scaled(unscaled < 36 ? 16
            : unscaled < 40           ? 20
            : unscaled < 44           ? 22
            : unscaled < 48           ? 24
            : unscaled < 56           ? 28
            : unscaled < 64           ? 34
                                      : 38);
}

} // namespace

Chip::Chip(const QString& systemImage, int edge, Look look, QWidget* parent)
    : QWidget(parent), symbol_(systemImage), edge_(edge), look_(look)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void Chip::setSystemImage(const QString& symbol)
{
    symbol_ = symbol;
    update();
}

QSize Chip::sizeHint() const
{
    return {Type::scaled(edge_), Type::scaled(edge_)};
}

void Chip::draw(QPainter& painter, const QRectF& box, const QString& symbol, Look look)
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
    const auto edge = symbolEdge(box.width());
    QRectF icon(0, 0, edge, edge);
    icon.moveCenter(box.center());
    Symbols::paint(painter, icon, symbol, Palette::color(tone));
}

void Chip::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    draw(painter, rect(), symbol_, look_);
}
