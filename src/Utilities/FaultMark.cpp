#include "FaultMark.h"

#include "Spacing.h"

#include <QLineEdit>
#include <QMetaProperty>
#include <QScrollArea>
#include <QVariant>

namespace {

constexpr char markedProperty[] = "hasFault";

/// Scrolls every page around the control so far that its caption shows as well.
void reveal(QWidget* control)
{
    const int withCaption = Type::lineHeight(Type::caption) + Spacing::captionToField + Spacing::fieldsDown;
    for (QWidget* around = control->parentWidget(); around; around = around->parentWidget()) {
        if (auto* page = qobject_cast<QScrollArea*>(around))
            page->ensureWidgetVisible(control, 0, withCaption);
    }
}

} // namespace

void FaultMark::leadTo(QWidget* field, const QString& fault)
{
    QWidget* control = field;
    while (control->focusProxy())
        control = control->focusProxy();
    for (FaultMark* earlier : control->window()->findChildren<FaultMark*>())
        earlier->remove();
    control->setFocus(Qt::OtherFocusReason);
    if (auto* line = qobject_cast<QLineEdit*>(control))
        line->selectAll();
    reveal(control);
    // Only now: a field may put itself right as soon as somebody comes to it.
    if (!fault.isEmpty())
        new FaultMark(control, fault);
}

bool FaultMark::isOn(const QWidget* control)
{
    return control && control->property(markedProperty).toBool();
}

FaultMark::FaultMark(QWidget* control, const QString& fault)
    : QObject(control), control_(control), description_(control->accessibleDescription())
{
    control->setProperty(markedProperty, true);
    control->setAccessibleDescription(fault);
    control->update();
    // Every control in which something is entered says which of its properties that is.
    connect(control, control->metaObject()->userProperty().notifySignal(), this,
        metaObject()->method(metaObject()->indexOfSlot("remove()")));
}

void FaultMark::remove()
{
    disconnect(control_, nullptr, this, nullptr);
    control_->setProperty(markedProperty, QVariant());
    control_->setAccessibleDescription(description_);
    control_->update();
    setParent(nullptr);
    deleteLater();
}
