#include "PortalAppearance.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

const QString service = u"org.freedesktop.portal.Desktop"_s;
const QString path = u"/org/freedesktop/portal/desktop"_s;
const QString interface = u"org.freedesktop.portal.Settings"_s;
const QString appearanceGroup = u"org.freedesktop.appearance"_s;
const QString colorSchemeKey = u"color-scheme"_s;
const QString contrastKey = u"contrast"_s;

/// The portal's words for dark and for more contrast; 0 is no preference, and 2 is light.
constexpr uint prefersDark = 1;
constexpr uint prefersContrast = 1;

/// The value inside however many variants it is wrapped in: the portal's older call wraps it twice.
QVariant unwrapped(QVariant value)
{
    while (value.canConvert<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value;
}

} // namespace

PortalAppearance::PortalAppearance() : PortalAppearance(QDBusConnection::sessionBus()) { }

PortalAppearance::PortalAppearance(const QDBusConnection& bus)
{
    if (!bus.isConnected())
        return;
    // The bus knows the slot's signature only by the names of its types, and before its first message of this
    // process it has not named this one yet.
    qRegisterMetaType<QDBusVariant>("QDBusVariant");
    QDBusConnection(bus).connect(service, path, interface, u"SettingChanged"_s, this,
        SLOT(settingChanged(QString, QString, QDBusVariant)));
    // Every portal there is knows the first; it is deprecated in favour of the second.
    for (const QString& key : {colorSchemeKey, contrastKey})
        ask(bus, key, {u"Read"_s, u"ReadOne"_s});
}

/// Makes the first of these calls, and the next one when the portal refuses it.
void PortalAppearance::ask(const QDBusConnection& bus, const QString& key, QStringList calls)
{
    QDBusMessage call = QDBusMessage::createMethodCall(service, path, interface, calls.takeFirst());
    call.setArguments({appearanceGroup, key});
    auto* const watcher = new QDBusPendingCallWatcher(bus.asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
        [this, bus, key, calls](QDBusPendingCallWatcher* finished) {
            const QDBusPendingReply<QDBusVariant> reply = *finished;
            finished->deleteLater();
            if (reply.isValid())
                apply(key, unwrapped(QVariant::fromValue(reply.value())).toUInt());
            else if (!calls.isEmpty())
                ask(bus, key, calls);
        });
}

void PortalAppearance::settingChanged(const QString& group, const QString& key, const QDBusVariant& value)
{
    if (group == appearanceGroup)
        apply(key, unwrapped(QVariant::fromValue(value)).toUInt());
}

void PortalAppearance::apply(const QString& key, uint value)
{
    const auto take = [this](bool& preference, bool now) {
        if (now != std::exchange(preference, now))
            emit changed();
    };
    if (key == colorSchemeKey)
        take(isDark_, value == prefersDark);
    else if (key == contrastKey)
        take(wantsHighContrast_, value == prefersContrast);
}
