#include "Surface.h"

#include "Paint.h"
#include "Palette.h"
#include "Spacing.h"

#include <QPainter>
#include <QVBoxLayout>

namespace {

/// Stronger than a divider for people who asked for contrast.
QColor edgeColor()
{
    return Palette::color(Palette::hasHighContrast() ? Brand::fieldBorder : Brand::line);
}

int edgeOf(Surface::Kind kind)
{
    return kind == Surface::Kind::dark ? 0 : 1;
}

} // namespace

Surface::Surface(Kind kind, int padding, QWidget* parent)
    : QWidget(parent), kind_(kind), content_(new QVBoxLayout(this))
{
    content_->setSpacing(0);
    setPadding(padding);
}

void Surface::setPadding(int padding)
{
    const int margin = padding + edgeOf(kind_);
    content_->setContentsMargins(margin, margin, margin, margin);
}

void Surface::addSpacing(int spacingAbove)
{
    if (content_->count() > 0 && spacingAbove > 0)
        content_->addSpacing(spacingAbove);
}

void Surface::add(QWidget* widget, int spacingAbove)
{
    addSpacing(spacingAbove);
    content_->addWidget(widget);
}

void Surface::add(QLayout* layout, int spacingAbove)
{
    addSpacing(spacingAbove);
    content_->addLayout(layout);
}

void Surface::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    switch (kind_) {
    case Kind::card:
        return Paint::roundedRect(painter, rect(), Radius::card, Palette::color(Brand::card), edgeColor());
    case Kind::block:
        return Paint::roundedRect(painter, rect(), Radius::block, Palette::color(Brand::panel), edgeColor());
    case Kind::alert:
        return Paint::roundedRect(
            painter, rect(), Radius::alert, Palette::color(Brand::card), Palette::color(Brand::fieldBorder));
    case Kind::dark:
        return Paint::roundedRect(painter, rect(), Radius::hero, Palette::darkGradient(rect()));
    case Kind::darkTile:
        return Paint::roundedRect(painter, rect(), Radius::block,
            Palette::color(Brand::onDarkTitle, Brand::onDarkTileOpacity),
            Palette::color(Brand::onDarkTitle, Brand::onDarkEdgeOpacity));
    }
}
