#include "PortalAppearance.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>

using namespace Qt::StringLiterals;

namespace {

const QString service = u"org.freedesktop.portal.Desktop"_s;
const QString path = u"/org/freedesktop/portal/desktop"_s;
const QString interface = u"org.freedesktop.portal.Settings"_s;
const QString appearanceGroup = u"org.freedesktop.appearance"_s;
const QString colorSchemeKey = u"color-scheme"_s;

/// The portal's word for dark; 0 is no preference and 2 is light.
constexpr uint prefersDark = 1;

/// The value inside however many variants it is wrapped in: the portal's older call wraps it twice.
QVariant unwrapped(QVariant value)
{
    while (value.canConvert<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value;
}

} // namespace

PortalAppearance::PortalAppearance()
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return;
    bus.connect(service, path, interface, u"SettingChanged"_s, this,
        SLOT(settingChanged(QString, QString, QDBusVariant)));
    ask();
}

void PortalAppearance::ask()
{
    QDBusMessage call = QDBusMessage::createMethodCall(service, path, interface, u"Read"_s);
    call.setArguments({appearanceGroup, colorSchemeKey});
    auto* watcher = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher* finished) {
        const QDBusPendingReply<QDBusVariant> reply = *finished;
        if (reply.isValid())
            apply(unwrapped(QVariant::fromValue(reply.value())).toUInt());
        finished->deleteLater();
    });
}

void PortalAppearance::settingChanged(const QString& group, const QString& key, const QDBusVariant& value)
{
    if (group == appearanceGroup && key == colorSchemeKey)
        apply(unwrapped(QVariant::fromValue(value)).toUInt());
}

void PortalAppearance::apply(uint colorScheme)
{
    if (std::exchange(isDark_, colorScheme == prefersDark) != isDark_)
        emit changed();
}
