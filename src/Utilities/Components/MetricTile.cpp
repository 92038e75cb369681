#include "MetricTile.h"

#include "Accessibility.h"
#include "Layouts.h"
#include "PlainLabel.h"
#include "Spacing.h"
#include "SymbolView.h"

#include <QVBoxLayout>

MetricTile::MetricTile(
    const QString& title, const QString& value, const QString& systemImage, QWidget* parent)
    : Surface(Kind::card, 0, parent), value_(new PlainLabel({}, Type::display))
{
    Accessibility::setRole(this, QAccessible::Grouping);
    setAccessibleName(title);
    auto* heading = new PlainLabel(title, Type::label, Brand::steel);
    heading->setFit(PlainLabel::Fit::elide);
    value_->setFit(PlainLabel::Fit::elide);
    auto* top = Layouts::row(8);
    top->addWidget(heading, 1);
    top->addWidget(new SymbolView(systemImage, IconSize::chip(), Brand::blue));
    add(top);
    add(value_, 4);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Minimum);
    setCompact(false);
    setValue(value);
}

void MetricTile::setCompact(bool compact)
{
    constexpr int edge = 1;
    const int across = edge + (compact ? Spacing::cardCompact : Spacing::card);
    content()->setContentsMargins(across, 17, across, 17);
}

QString MetricTile::value() const
{
    return value_->text();
}

void MetricTile::setValue(const QString& value)
{
    value_->setText(value);
    setAccessibleDescription(value);
    Accessibility::setValue(this, value);
}
