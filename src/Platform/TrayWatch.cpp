#include "TrayWatch.h"

#include "XScreenTray.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>

#include <utility>

using namespace Qt::StringLiterals;

/// What every tray on the bus has beside it, whoever made it.
static const QString trayOnBus = u"org.kde.StatusNotifierWatcher"_s;

TrayWatch::TrayWatch() : TrayWatch(QDBusConnection::sessionBus()) { }

TrayWatch::TrayWatch(const QDBusConnection& bus)
{
    if (bus.isConnected())
        watchBus(bus);
    watchScreen();
}

void TrayWatch::watchBus(const QDBusConnection& bus)
{
    const auto* const arrivals
        = new QDBusServiceWatcher(trayOnBus, bus, QDBusServiceWatcher::WatchForRegistration, this);
    connect(arrivals, &QDBusServiceWatcher::serviceRegistered, this, &TrayWatch::find);

    QDBusMessage question = QDBusMessage::createMethodCall(
        u"org.freedesktop.DBus"_s, u"/"_s, u"org.freedesktop.DBus"_s, u"NameHasOwner"_s);
    question.setArguments({trayOnBus});
    const auto* const asking = new QDBusPendingCallWatcher(bus.asyncCall(question), this);
    connect(asking, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher* finished) {
        const QDBusPendingReply<bool> isThere = *finished;
        finished->deleteLater();
        if (isThere.isValid() && isThere.value())
            find();
    });
}

void TrayWatch::watchScreen()
{
    const auto* const screen = new XScreenTray(this);
    // Queued, because the filter of an arrival runs before Qt itself has seen it.
    connect(screen, &XScreenTray::appeared, this, &TrayWatch::find, Qt::QueuedConnection);
    if (screen->isThere())
        QMetaObject::invokeMethod(this, &TrayWatch::find, Qt::QueuedConnection);
}

void TrayWatch::find()
{
    if (!std::exchange(isFound_, true))
        emit found();
}
