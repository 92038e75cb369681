#include "CompactStatCard.h"

#include "Accessibility.h"
#include "Layouts.h"
#include "Paint.h"
#include "Palette.h"
#include "PlainLabel.h"
#include "Spacing.h"
#include "SymbolView.h"

#include <QPainter>

using Look = CompactStatCard::Look;

CompactStatCard::CompactStatCard(const QString& title, const QString& value, const QString& systemImage,
    const QString& caption, Look look, QWidget* parent)
    : QWidget(parent), look_(look),
      value_(new PlainLabel({}, look == Look::banner ? Type::fee : Type::display,
          look == Look::card ? Brand::ink : Brand::onDarkTitle)),
      caption_(new PlainLabel({}, Type::small, look == Look::card ? Brand::steel : Brand::onDarkText))
{
    Accessibility::setRole(this, QAccessible::Grouping);
    setAccessibleName(title);
    const bool banner = look == Look::banner;
    const bool onCard = look == Look::card;
    auto* heading = new PlainLabel(title, banner ? Type::strong : Type::body,
        onCard       ? Brand::steel
            : banner ? Brand::onDarkTitle
                     : Brand::onDarkText);
    heading->setFit(PlainLabel::Fit::elide);
    value_->setFit(PlainLabel::Fit::elide);
    auto* symbol = new SymbolView(systemImage, IconSize::chip(), onCard ? Brand::blue : Brand::onDarkTitle);
    auto* top = Layouts::row(8);
    top->addWidget(heading, 1);
    top->insertWidget(banner ? 0 : 1, symbol);
    auto* column = Layouts::column(0);
    column->addLayout(top);
    column->addSpacing(banner ? 8 : 4);
    column->addWidget(value_);
    column->addSpacing(4);
    column->addWidget(caption_);
    if (banner)
        column->setContentsMargins(20, 20, 20, 20);
    else
        column->setContentsMargins(21, 17, 21, 17);
    setLayout(column);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    setValue(value);
    setCaption(caption);
}

QString CompactStatCard::value() const
{
    return value_->text();
}

void CompactStatCard::setValue(const QString& value)
{
    value_->setText(value);
    Accessibility::setValue(this, value);
    setAccessibleDescription(value);
}

void CompactStatCard::setCaption(const QString& caption)
{
    caption_->setText(caption);
    caption_->setVisible(!caption.isEmpty());
}

void CompactStatCard::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (look_ == Look::card)
        return Paint::roundedRect(
            painter, rect(), Radius::card, Palette::color(Brand::card), Palette::color(Brand::line));
    const auto fill = Palette::darkGradient(rect());
    if (look_ == Look::dark)
        return Paint::roundedRect(painter, rect(), Radius::card, fill);
    // Round above only, inside the edge of the card that continues below.
    painter.setClipRect(rect());
    Paint::roundedRect(painter, QRectF(rect()).adjusted(0, 0, 0, Radius::card), Radius::card - 1, fill);
}
