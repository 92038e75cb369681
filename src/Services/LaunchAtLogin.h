#pragma once

#include "LoginItem.h"
#include "UserDefaults.h"

#include <QProperty>

/// Whether the program starts when the person signs in to the desktop: what the desktop says, with a copy in
/// the preferences.
class LaunchAtLogin
{
public:
    /// Begins with the stored copy, without asking the desktop.
    LaunchAtLogin(UserDefaults& defaults, LoginItem& item);

    QProperty<bool> isOn{false};

    /// Asks the desktop.
    void refresh();
    /// Registers or unregisters the program, where it is not so already.
    /// \returns whether the desktop did it; if not, isOn says how things stand
    [[nodiscard]] bool choose(bool on);

    static const QString defaultsKey; ///< "launchAtLogin", holding "true" or "false"

private:
    void keep(bool on);

    UserDefaults& defaults_;
    LoginItem& item_;
};
