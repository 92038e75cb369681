#include "Accessibility.h"

#include <QAbstractButton>
#include <QAccessibleWidget>

namespace {

constexpr char roleProperty[] = "accessibleRole";
constexpr char valueProperty[] = "accessibleValue";
constexpr char busyProperty[] = "accessibleBusy";

class AccessibleComponent : public QAccessibleWidget
{
public:
    explicit AccessibleComponent(QWidget* widget) : QAccessibleWidget(widget) { }

    QAccessible::Role role() const override
    {
        return static_cast<QAccessible::Role>(widget()->property(roleProperty).toInt());
    }

    QString text(QAccessible::Text kind) const override
    {
        if (kind == QAccessible::Value)
            return widget()->property(valueProperty).toString();
        return QAccessibleWidget::text(kind);
    }

    QAccessible::State state() const override
    {
        auto state = QAccessibleWidget::state();
        state.busy = widget()->property(busyProperty).toBool();
        if (const auto* control = button(); control && control->isCheckable()) {
            const bool listed = role() == QAccessible::ListItem;
            state.selectable = listed;
            state.selected = listed && control->isChecked();
            state.checkable = !listed;
            state.checked = !listed && control->isChecked();
        }
        return state;
    }

    QStringList actionNames() const override
    {
        auto names = QAccessibleWidget::actionNames();
        if (button() && widget()->isEnabled())
            names.prepend(pressAction());
        return names;
    }

    void doAction(const QString& name) override
    {
        if (name == pressAction() && button())
            button()->click();
        else
            QAccessibleWidget::doAction(name);
    }

private:
    QAbstractButton* button() const { return qobject_cast<QAbstractButton*>(widget()); }
};

QAccessibleInterface* makeInterface(const QString&, QObject* object)
{
    auto* widget = qobject_cast<QWidget*>(object);
    if (!widget || !widget->property(roleProperty).isValid())
        return nullptr;
    return new AccessibleComponent(widget);
}

} // namespace

namespace Accessibility {

void install()
{
    static const bool installed = (QAccessible::installFactory(makeInterface), true);
    Q_UNUSED(installed)
}

void setRole(QWidget* widget, QAccessible::Role role)
{
    widget->setProperty(roleProperty, int(role));
}

void setValue(QWidget* widget, const QString& value)
{
    if (widget->property(valueProperty).toString() == value)
        return;
    widget->setProperty(valueProperty, value);
    QAccessibleValueChangeEvent event(widget, value);
    QAccessible::updateAccessibility(&event);
}

void setBusy(QWidget* widget, bool busy)
{
    widget->setProperty(busyProperty, busy);
    QAccessible::State changed;
    changed.busy = true;
    QAccessibleStateChangeEvent event(widget, changed);
    QAccessible::updateAccessibility(&event);
}

} // namespace Accessibility
