#include "Accessibility.h"

#include "AccessibleEvents.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAccessibleWidget>
#include <QComboBox>

using namespace Qt::StringLiterals;

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
        const QString text = QAccessibleWidget::text(kind);
        // Qt 6.4 tells nobody that an entry can be selected, and a screen reader then leaves out that it is.
        if (kind == QAccessible::Description && text.isEmpty() && state().selected)
            return u"selected"_s;
        return text;
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

/// A picker is named by its label and described by what is chosen. Qt's own would be named by the choice.
class AccessiblePicker : public QAccessibleWidget
{
public:
    explicit AccessiblePicker(QComboBox* box) : QAccessibleWidget(box, QAccessible::ComboBox) { }

    int childCount() const override { return 1; }
    QAccessibleInterface* child(int index) const override
    {
        return index == 0 ? QAccessible::queryAccessibleInterface(box()->view()) : nullptr;
    }
    int indexOfChild(const QAccessibleInterface* child) const override
    {
        return child && child->object() == box()->view() ? 0 : -1;
    }

    QString text(QAccessible::Text kind) const override
    {
        const auto text = QAccessibleWidget::text(kind);
        const bool tellsChoice
            = kind == QAccessible::Value || (kind == QAccessible::Description && text.isEmpty());
        if (!tellsChoice)
            return text;
        return box()->currentIndex() < 0 ? box()->placeholderText() : box()->currentText();
    }

    QAccessible::State state() const override
    {
        auto state = QAccessibleWidget::state();
        state.expandable = true;
        state.expanded = box()->view()->isVisible();
        state.hasPopup = true;
        return state;
    }

    QStringList actionNames() const override
    {
        auto names = QAccessibleWidget::actionNames();
        if (widget()->isEnabled())
            names.prepend(showMenuAction());
        return names;
    }

    void doAction(const QString& name) override
    {
        if (name == showMenuAction() || name == pressAction())
            box()->view()->isVisible() ? box()->hidePopup() : box()->showPopup();
        else
            QAccessibleWidget::doAction(name);
    }

private:
    QComboBox* box() const { return qobject_cast<QComboBox*>(widget()); }
};

QAccessibleInterface* makeInterface(const QString&, QObject* object)
{
    if (auto* box = qobject_cast<QComboBox*>(object))
        return new AccessiblePicker(box);
    auto* widget = qobject_cast<QWidget*>(object);
    if (!widget || !widget->property(roleProperty).isValid())
        return nullptr;
    return new AccessibleComponent(widget);
}

} // namespace

namespace Accessibility {

void install()
{
    QAccessible::installFactory(makeInterface);
    AccessibleEvents::install();
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
