#include "Booking/TabOrder.h"

#include <QWidget>

QWidget* TabOrder::append(QWidget* before, const QWidget* container)
{
    QList<QWidget*> controls;
    for (QWidget* next = container->nextInFocusChain(); next != container; next = next->nextInFocusChain()) {
        const bool takesTab = (next->focusPolicy() & Qt::TabFocus) == Qt::TabFocus && !next->focusProxy();
        if (takesTab && container->isAncestorOf(next))
            controls += next;
    }
    for (QWidget* control : std::as_const(controls)) {
        QWidget::setTabOrder(before, control);
        before = control;
    }
    return before;
}
