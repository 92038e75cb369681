#include "SymbolView.h"

#include "Palette.h"
#include "Symbols.h"

#include <QPainter>

SymbolView::SymbolView(const QString& systemImage, int edge, Brand::Tone tone, QWidget* parent)
    : QWidget(parent), symbol_(systemImage), edge_(edge), tone_(tone)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void SymbolView::setSystemImage(const QString& symbol)
{
    symbol_ = symbol;
    update();
}

void SymbolView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    Symbols::paint(painter, rect(), symbol_, Palette::color(isEnabled() ? tone_ : Brand::muted));
}
