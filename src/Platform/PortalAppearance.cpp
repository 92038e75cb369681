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
    for (const Setting& setting : followed())
        ask(bus, setting, {u"Read"_s, u"ReadOne"_s});
}

const std::array<PortalAppearance::Setting, 3>& PortalAppearance::followed()
{
    // 0 is no preference, and 2 of the first is light. The last is what a portal that is too old to know the
    // second passes on from the one desktop that has such a switch.
    static const std::array<Setting, 3> settings{{
        {u"org.freedesktop.appearance"_s, u"color-scheme"_s, 1U, &PortalAppearance::isDark_},
        {u"org.freedesktop.appearance"_s, u"contrast"_s, 1U, &PortalAppearance::wantsContrast_},
        {u"org.gnome.desktop.a11y.interface"_s, u"high-contrast"_s, true,
            &PortalAppearance::wantsContrastOnGnome_},
    }};
    return settings;
}

/// Makes the first of these calls, and the next one when the portal refuses it.
void PortalAppearance::ask(const QDBusConnection& bus, const Setting& setting, QStringList calls)
{
    QDBusMessage call = QDBusMessage::createMethodCall(service, path, interface, calls.takeFirst());
    call.setArguments({setting.group, setting.key});
    auto* const watcher = new QDBusPendingCallWatcher(bus.asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
        [this, bus, &setting, calls](QDBusPendingCallWatcher* finished) {
            const QDBusPendingReply<QDBusVariant> reply = *finished;
            finished->deleteLater();
            if (reply.isValid())
                apply(setting, unwrapped(QVariant::fromValue(reply.value())));
            else if (!calls.isEmpty())
                ask(bus, setting, calls);
        });
}

void PortalAppearance::settingChanged(const QString& group, const QString& key, const QDBusVariant& value)
{
    for (const Setting& setting : followed()) {
        if (setting.group == group && setting.key == key)
            apply(setting, unwrapped(QVariant::fromValue(value)));
    }
}

void PortalAppearance::apply(const Setting& setting, const QVariant& value)
{
    const auto wishes = [this] { return std::pair(isDark(), wantsHighContrast()); };
    const auto before = wishes();
    this->*setting.preference = value == setting.yes;
    if (wishes() != before)
        emit changed();
}
