#include "LineInput.h"

#include "Spacing.h"

#include <QFocusEvent>
#include <QGuiApplication>

LineInput::LineInput(QWidget* parent) : QLineEdit(parent)
{
    setFont(Type::font(Type::body));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    // Left to itself, a value follows its own letters and stands away from its caption.
    if (QGuiApplication::isRightToLeft())
        setAlignment(Qt::AlignRight | Qt::AlignAbsolute | Qt::AlignVCenter);
}

QSize LineInput::sizeHint() const
{
    return {Type::scaled(180), Height::control()};
}

QSize LineInput::minimumSizeHint() const
{
    return {Type::scaled(72), Height::control()};
}

void LineInput::focusOutEvent(QFocusEvent* event)
{
    QLineEdit::focusOutEvent(event);
    switch (event->reason()) {
    case Qt::ActiveWindowFocusReason:
    case Qt::PopupFocusReason:
    case Qt::MenuBarFocusReason:
        break;
    default:
        home(false);
    }
}
