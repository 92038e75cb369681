#include "LoadingLine.h"

#include "Accessibility.h"
#include "ArcAnimation.h"
#include "Layouts.h"
#include "Paint.h"
#include "Palette.h"
#include "PlainLabel.h"
#include "Spacing.h"

#include <QPainter>
#include <QStyle>

namespace {

constexpr int gap = 8;

} // namespace

LoadingLine::LoadingLine(const QString& text, QWidget* parent)
    : QWidget(parent), text_(new PlainLabel(text, Type::body, Brand::steel)), arc_(new ArcAnimation(this))
{
    Accessibility::setRole(this, QAccessible::Animation);
    Accessibility::setBusy(this, true);
    setAccessibleName(text);
    text_->setFit(PlainLabel::Fit::elide);
    auto* row = Layouts::row(0);
    row->addSpacing(IconSize::button() + gap);
    row->addWidget(text_);
    setLayout(row);
    arc_->setTurning(true);
}

void LoadingLine::setText(const QString& text)
{
    setAccessibleName(text);
    text_->setText(text);
}

void LoadingLine::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const auto edge = IconSize::button();
    const QRect box(0, (height() - edge) / 2, edge, edge);
    Paint::arc(painter, QStyle::visualRect(layoutDirection(), rect(), box), Palette::color(Brand::blue),
        arc_->degrees());
}
