#include "WorkspaceHero.h"

#include "Layouts.h"
#include "PlainLabel.h"
#include "PrimaryButton.h"
#include "SecondaryButton.h"
#include "Spacing.h"

namespace {

void fill(PlainLabel* label, const QString& text)
{
    label->setText(text);
    label->setVisible(!text.isEmpty());
}

} // namespace

WorkspaceHero::WorkspaceHero(
    const QString& eyebrow, const QString& title, const QString& subtitle, QWidget* parent)
    : QWidget(parent), eyebrow_(new PlainLabel({}, Type::group, Brand::blue)),
      title_(new PlainLabel({}, Type::title)), subtitle_(new PlainLabel({}, Type::body, Brand::steel)),
      buttons_(Layouts::row(Spacing::buttons))
{
    auto* row = Layouts::row(Spacing::card);
    row->addLayout(Layouts::column(4, {eyebrow_, title_, subtitle_}), 1);
    row->addLayout(buttons_);
    setLayout(row);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    setEyebrow(eyebrow);
    setTitle(title);
    setSubtitle(subtitle);
}

void WorkspaceHero::setEyebrow(const QString& eyebrow)
{
    fill(eyebrow_, eyebrow);
}

void WorkspaceHero::setTitle(const QString& title)
{
    fill(title_, title);
}

void WorkspaceHero::setSubtitle(const QString& subtitle)
{
    fill(subtitle_, subtitle);
}

PrimaryButton* WorkspaceHero::addPrimary(const QString& title, const QString& systemImage)
{
    auto* button = new PrimaryButton(title, systemImage);
    buttons_->addWidget(button);
    return button;
}

SecondaryButton* WorkspaceHero::addSecondary(const QString& title, const QString& systemImage)
{
    auto* button = new SecondaryButton(title, systemImage);
    buttons_->addWidget(button);
    return button;
}
