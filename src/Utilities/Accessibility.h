#pragma once

#include <QAccessible>

class QWidget;

/// What a component tells assistive technology beyond its name and description.
namespace Accessibility {

/// Makes the roles and values given here take effect; BrandStyle calls it.
void install();

/// Gives a component a role that Qt would not guess from its base class. A checkable button with the role
/// of a list item exposes "checked" as "selected".
void setRole(QWidget* widget, QAccessible::Role role);
/// The component's value as text, for example the figure of a tile. Needs a role.
void setValue(QWidget* widget, const QString& value);
/// Whether the component is at work and does not react. Needs a role.
void setBusy(QWidget* widget, bool busy);

} // namespace Accessibility
