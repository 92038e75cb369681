#include "AccessibleEvents.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QDateTimeEdit>
#include <QLineEdit>
#include <QPointer>

namespace {

constexpr QChar bullet = u'\u2022';
constexpr char concealedProperty[] = "isConcealed";

/// Whoever is told after the rules; null for the platform.
QAccessible::UpdateHandler& listener()
{
    static QAccessible::UpdateHandler handler = nullptr;
    return handler;
}

/// Of which the focus was told, until the focus moves.
QPointer<QObject>& focused()
{
    static QPointer<QObject> object;
    return object;
}

void hear(QAccessibleEvent* event);

/// The platform is reached only without a handler. A table model's change is then taken in a second time,
/// which changes nothing more.
void tell(QAccessibleEvent* event)
{
    QAccessible::installUpdateHandler(listener());
    QAccessible::updateAccessibility(event);
    QAccessible::installUpdateHandler(hear);
}

bool conceals(const QObject* object)
{
    const auto* edit = qobject_cast<const QLineEdit*>(object);
    return edit && (edit->echoMode() != QLineEdit::Normal || edit->property(concealedProperty).toBool());
}

QString bullets(const QString& text)
{
    return {text.size(), bullet};
}

void tellConcealed(QAccessibleTextInsertEvent* event)
{
    QAccessibleTextInsertEvent concealed(
        event->object(), event->changePosition(), bullets(event->textInserted()));
    concealed.setCursorPosition(event->cursorPosition());
    tell(&concealed);
}

void tellConcealed(QAccessibleTextRemoveEvent* event)
{
    QAccessibleTextRemoveEvent concealed(
        event->object(), event->changePosition(), bullets(event->textRemoved()));
    concealed.setCursorPosition(event->cursorPosition());
    tell(&concealed);
}

void tellConcealed(QAccessibleTextUpdateEvent* event)
{
    QAccessibleTextUpdateEvent concealed(event->object(), event->changePosition(),
        bullets(event->textRemoved()), bullets(event->textInserted()));
    concealed.setCursorPosition(event->cursorPosition());
    tell(&concealed);
}

template <typename TextEvent>
void tellText(QAccessibleEvent* event)
{
    if (conceals(event->object()))
        tellConcealed(static_cast<TextEvent*>(event));
    else
        tell(event);
}

/// A field that the focus is leaving does not have it any more, though nothing has told that yet.
bool isWorkedIn(const QObject* object)
{
    return object && object == focused() && object == QApplication::focusWidget()
        && !qobject_cast<const QDateTimeEdit*>(object);
}

/// As a list does whose rows are loaded and one of them selected, wherever the person is.
bool onlyClaimsFocus(const QObject* object)
{
    const auto* list = qobject_cast<const QAbstractItemView*>(object);
    return list && !list->hasFocus() && list->window()->windowType() != Qt::Popup;
}

void hear(QAccessibleEvent* event)
{
    switch (event->type()) {
    case QAccessible::Focus:
        if (onlyClaimsFocus(event->object()))
            return;
        // Told even of a widget whose focus has just been taken away.
        focused() = event->object() == QApplication::focusWidget() ? event->object() : nullptr;
        return tell(event);
    case QAccessible::TextCaretMoved:
    case QAccessible::TextSelectionChanged:
        if (isWorkedIn(event->object()))
            tell(event);
        return;
    case QAccessible::TextInserted:
        return tellText<QAccessibleTextInsertEvent>(event);
    case QAccessible::TextRemoved:
        return tellText<QAccessibleTextRemoveEvent>(event);
    case QAccessible::TextUpdated:
        return tellText<QAccessibleTextUpdateEvent>(event);
    default:
        return tell(event);
    }
}

} // namespace

void AccessibleEvents::install()
{
    const QAccessible::UpdateHandler before = QAccessible::installUpdateHandler(hear);
    if (before != hear)
        listener() = before;
    static const auto connection
        = QObject::connect(qApp, &QApplication::focusChanged, qApp, [] { focused().clear(); });
    Q_UNUSED(connection)
}

void AccessibleEvents::conceal(QWidget* field)
{
    field->setProperty(concealedProperty, true);
}
