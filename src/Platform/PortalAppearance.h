#pragma once

#include "SystemAppearance.h"

class QDBusVariant;
class QString;

/// The desktop's preference as its settings portal tells it over D-Bus. Asked without waiting: until the
/// answer comes, and where there is no portal, the desktop counts as light.
class PortalAppearance : public SystemAppearance
{
    Q_OBJECT

public:
    PortalAppearance();

    bool isDark() const override { return isDark_; }

private slots:
    void settingChanged(const QString& group, const QString& key, const QDBusVariant& value);

private:
    void ask();
    void apply(uint colorScheme);

    bool isDark_ = false;
};
