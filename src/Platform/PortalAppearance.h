#pragma once

#include "SystemAppearance.h"

#include <QStringList>

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
    bool wantsHighContrast() const override { return wantsHighContrast_; }

private slots:
    void settingChanged(const QString& group, const QString& key, const QDBusVariant& value);

private:
    void ask(const QDBusConnection& bus, const QString& key, QStringList calls);
    void apply(const QString& key, uint value);

    bool isDark_ = false;
    bool wantsHighContrast_ = false;
};
