#include "LaunchAtLogin.h"

using namespace Qt::StringLiterals;

const QString LaunchAtLogin::defaultsKey = u"launchAtLogin"_s;

static const QString yes = u"true"_s;
static const QString no = u"false"_s;

LaunchAtLogin::LaunchAtLogin(UserDefaults& defaults, LoginItem& item) : defaults_(defaults), item_(item)
{
    isOn = defaults_.string(defaultsKey) == yes;
}

void LaunchAtLogin::refresh()
{
    keep(item_.isEnabled());
}

bool LaunchAtLogin::choose(bool on)
{
    const bool isDone = on == item_.isEnabled() || (on ? item_.registerItem() : item_.unregisterItem());
    keep(isDone ? on : item_.isEnabled());
    return isDone;
}

/// Looking at the setting writes nothing to the disk.
void LaunchAtLogin::keep(bool on)
{
    isOn = on;
    const QString value = on ? yes : no;
    if (defaults_.string(defaultsKey).value_or(no) != value)
        defaults_.setString(defaultsKey, value);
}
