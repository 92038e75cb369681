#pragma once

#include "SystemAppearance.h"

#include <QStringList>
#include <QVariant>

#include <array>

class QDBusConnection;
class QDBusVariant;

/// The desktop's preferences as its settings portal tells them over D-Bus. Asked without waiting: until the
/// answers come, and where there is no portal, the desktop counts as light and of ordinary contrast.
class PortalAppearance : public SystemAppearance
{
    Q_OBJECT

public:
    /// Asks on the session's bus.
    PortalAppearance();
    explicit PortalAppearance(const QDBusConnection& bus);

    bool isDark() const override { return isDark_; }
    bool wantsHighContrast() const override { return wantsContrast_ || wantsContrastOnGnome_; }

private slots:
    void settingChanged(const QString& group, const QString& key, const QDBusVariant& value);

private:
    /// One of the portal's settings, with the value that says yes to a preference.
    struct Setting
    {
        QString group;
        QString key;
        QVariant yes;
        bool PortalAppearance::*preference;
    };

    static const std::array<Setting, 3>& followed();
    void ask(const QDBusConnection& bus, const Setting& setting, QStringList calls);
    void apply(const Setting& setting, const QVariant& value);

    bool isDark_ = false;
    bool wantsContrast_ = false;
    bool wantsContrastOnGnome_ = false;
};
