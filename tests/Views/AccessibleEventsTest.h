#pragma once

#include "Accessibility.h"
#include "ComponentsTest.h"
#include "support/ScreenReader.h"

/// What was told to assistive technology, in the order in which it was.
struct Told
{
    QAccessible::Event type;
    QString name; ///< of what it is about
    QString text; ///< every character that it carries
};

/// Listens as a screen reader does while people work with components.
class AccessibleEventsTest : public ComponentsTest
{
protected:
    AccessibleEventsTest()
    {
        heard().clear();
        ScreenReader::setPresent(true);
        QAccessible::installUpdateHandler(hear);
        Accessibility::install();
    }

    ~AccessibleEventsTest() override
    {
        QAccessible::installUpdateHandler(nullptr);
        Accessibility::install();
        ScreenReader::setPresent(false);
    }

    static QList<Told>& heard()
    {
        static QList<Told> list;
        return list;
    }

    static QList<Told> heardOf(QAccessible::Event type)
    {
        QList<Told> list = heard();
        list.removeIf([type](const Told& told) { return told.type != type; });
        return list;
    }

    /// What has the focus, as it was told.
    static QStringList focused()
    {
        QStringList names;
        for (const Told& told : heardOf(QAccessible::Focus))
            names += told.name;
        return names;
    }

private:
    static void hear(QAccessibleEvent* event)
    {
        const QAccessibleInterface* about = event->accessibleInterface();
        heard() += {event->type(), about ? about->text(QAccessible::Name) : QString(), textOf(event)};
    }

    static QString textOf(QAccessibleEvent* event)
    {
        switch (event->type()) {
        case QAccessible::TextInserted:
            return static_cast<QAccessibleTextInsertEvent*>(event)->textInserted();
        case QAccessible::TextRemoved:
            return static_cast<QAccessibleTextRemoveEvent*>(event)->textRemoved();
        case QAccessible::TextUpdated: {
            auto* update = static_cast<QAccessibleTextUpdateEvent*>(event);
            return update->textRemoved() + update->textInserted();
        }
        default:
            return {};
        }
    }
};
