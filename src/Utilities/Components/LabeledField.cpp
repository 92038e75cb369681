#include "LabeledField.h"

#include "FieldCaption.h"
#include "Spacing.h"

#include <QBoxLayout>

LabeledField::LabeledField(const QString& caption, QWidget* control, Placement placement, QWidget* parent)
    : QWidget(parent), caption_(new FieldCaption(caption)), control_(control)
{
    const bool above = placement == Placement::above;
    auto* layout = new QBoxLayout(above ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight, this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(above ? Spacing::captionToField : Spacing::buttons);
    layout->addWidget(caption_);
    layout->addWidget(control, 1);
    caption_->setBuddy(control);
    setFocusProxy(control);
    if (!above)
        caption_->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setCaption(caption);
    setSizePolicy(control->sizePolicy());
}

QString LabeledField::caption() const
{
    return caption_->text();
}

void LabeledField::setCaptionWraps(bool wraps)
{
    caption_->setFit(wraps ? PlainLabel::Fit::wrap : PlainLabel::Fit::elide);
}

void LabeledField::setCaption(const QString& caption)
{
    caption_->setText(caption);
    caption_->setVisible(!caption.isEmpty());
    if (!caption.isEmpty())
        control_->setAccessibleName(caption);
}
