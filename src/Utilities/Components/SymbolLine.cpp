#include "SymbolLine.h"

#include "Layouts.h"
#include "PlainLabel.h"
#include "Spacing.h"
#include "SymbolView.h"

SymbolLine::SymbolLine(const QString& systemImage, const QString& text, QWidget* parent)
    : QWidget(parent), symbol_(new SymbolView(systemImage, IconSize::button(), Brand::blue)),
      text_(new PlainLabel(text))
{
    text_->setAlignment(Qt::AlignLeading | Qt::AlignTop);
    auto* beside = Layouts::column(0, {symbol_});
    beside->setContentsMargins(0, (Type::lineHeight(Type::body) - IconSize::button()) / 2, 0, 0);
    beside->addStretch();
    auto* row = Layouts::row(8);
    row->addLayout(beside);
    row->addWidget(text_, 1);
    setLayout(row);
}

void SymbolLine::setText(const QString& text)
{
    text_->setText(text);
}

void SymbolLine::setSpokenText(const QString& text)
{
    text_->setAccessibleName(text);
}

void SymbolLine::setSystemImage(const QString& symbol)
{
    symbol_->setSystemImage(symbol);
}
