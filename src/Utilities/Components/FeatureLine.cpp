#include "FeatureLine.h"

#include "Chip.h"
#include "Layouts.h"
#include "PlainLabel.h"

FeatureLine::FeatureLine(const QString& systemImage, const QString& title, const QString& text,
    Background background, QWidget* parent)
    : QWidget(parent)
{
    const bool dark = background == Background::dark;
    auto* chip = new Chip(systemImage, 36, dark ? Chip::Look::onDark : Chip::Look::soft);
    auto* heading = new PlainLabel(title, Type::strong, dark ? Brand::onDarkTitle : Brand::ink);
    auto* explanation = new PlainLabel(text, Type::body, dark ? Brand::onDarkText : Brand::steel);
    auto* texts = Layouts::column(0, {heading, explanation});
    texts->addStretch();
    auto* row = Layouts::row(12);
    row->addWidget(chip, 0, Qt::AlignTop);
    row->addLayout(texts, 1);
    setLayout(row);
}
