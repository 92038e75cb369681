#pragma once

#include "SystemAppearance.h"

#include <QStringList>

class QDBusConnection;
class QDBusVariant;

/// The desktop's preference as its settings portal tells it over D-Bus. Asked without waiting: until the
/// answer comes, and where there is no portal, the desktop counts as light.
class PortalAppearance : public SystemAppearance
{
    Q_OBJECT

public:
    /// Asks on the session's bus.
    PortalAppearance();
    explicit PortalAppearance(const QDBusConnection& bus);

    bool isDark() const override { return isDark_; }

private slots:
    void settingChanged(const QString& group, const QString& key, const QDBusVariant& value);

private:
    void ask(const QDBusConnection& bus, QStringList calls);
    void apply(uint colorScheme);

    bool isDark_ = false;
};
