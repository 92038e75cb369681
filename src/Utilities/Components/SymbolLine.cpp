#include "SymbolLine.h"

#include "Layouts.h"
#include "PlainLabel.h"
#include "Spacing.h"
#include "SymbolView.h"

SymbolLine::SymbolLine(const QString& systemImage, const QString& text, QWidget* parent)
    : QWidget(parent), symbol_(new SymbolView(systemImage, IconSize::button(), Brand::blue)),
      text_(new PlainLabel(text))
{
    text_->setFit(PlainLabel::Fit::elide);
    setLayout(Layouts::row(8, {symbol_, text_}));
}

void SymbolLine::setText(const QString& text)
{
    text_->setText(text);
}

void SymbolLine::setSystemImage(const QString& symbol)
{
    symbol_->setSystemImage(symbol);
}
