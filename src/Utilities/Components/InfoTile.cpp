#include "InfoTile.h"

#include "Layouts.h"
#include "PlainLabel.h"
#include "Spacing.h"
#include "SymbolView.h"

InfoTile::InfoTile(const QString& systemImage, const QString& title, const QString& text,
    Background background, QWidget* parent)
    : Surface(background == Background::dark ? Kind::darkTile : Kind::block, 16, parent)
{
    const bool dark = background == Background::dark;
    auto* symbol = new SymbolView(systemImage, IconSize::chip(), dark ? Brand::onDarkTitle : Brand::blue);
    auto* heading = new PlainLabel(title, Type::strong, dark ? Brand::onDarkTitle : Brand::ink);
    auto* explanation = new PlainLabel(text, Type::body, dark ? Brand::onDarkText : Brand::steel);
    auto* row = Layouts::row(12);
    row->addWidget(symbol, 0, Qt::AlignTop);
    row->addLayout(Layouts::column(0, {heading, explanation}), 1);
    content()->setContentsMargins(17, 13, 17, 13);
    add(row);
}
