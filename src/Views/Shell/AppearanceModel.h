#pragma once

#include "AppAppearanceMode.h"
#include "SystemAppearance.h"
#include "UserDefaults.h"

#include <QObject>
#include <QProperty>

/// The appearance that the person chose, kept between starts, and the colours that follow from it.
class AppearanceModel : public QObject
{
    Q_OBJECT

public:
    AppearanceModel(UserDefaults& defaults, const SystemAppearance& system);

    /// The stored choice; "system" when nothing, or nothing known, is stored.
    QProperty<AppAppearanceMode> mode{AppAppearanceMode::system};
    /// Whether the windows are dark now.
    QProperty<bool> isDark{false};
    /// Whether the desktop asks for colours that differ strongly.
    QProperty<bool> hasHighContrast{false};

    /// Stores the choice and applies it at once.
    void choose(AppAppearanceMode mode);

    static const QString defaultsKey; ///< "appearanceMode"

private:
    void update();

    UserDefaults& defaults_;
    const SystemAppearance& system_;
};
