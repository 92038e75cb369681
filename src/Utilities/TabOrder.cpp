#include "TabOrder.h"

#include <QWidget>

/// Tab stops at a field that hands its focus on, but QWidget only moves one that has a policy of its own.
static void makeMovable(QWidget* field)
{
    if (const QWidget* control = field->focusProxy())
        field->setFocusPolicy(control->focusPolicy());
}

QWidget* TabOrder::append(QWidget* before, const QList<QWidget*>& fields)
{
    makeMovable(before);
    for (QWidget* field : fields) {
        makeMovable(field);
        QWidget::setTabOrder(before, field);
        before = field;
    }
    return before;
}
