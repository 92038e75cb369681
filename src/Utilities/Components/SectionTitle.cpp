#include "SectionTitle.h"

#include "Layouts.h"
#include "PlainLabel.h"

SectionTitle::SectionTitle(const QString& text, const QString& caption, QWidget* parent)
    : QWidget(parent), text_(new PlainLabel(text, Type::heading)),
      caption_(new PlainLabel(caption, Type::body, Brand::steel))
{
    setLayout(Layouts::column(0, {text_, caption_}));
    setCaption(caption);
}

void SectionTitle::setText(const QString& text)
{
    text_->setText(text);
}

void SectionTitle::setCaption(const QString& caption)
{
    caption_->setText(caption);
    caption_->setVisible(!caption.isEmpty());
}
