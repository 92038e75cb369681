#pragma once

#include "People/Passwords.h"
#include "People/RegistrationThrottle.h"
#include "People/SignInThrottle.h"
#include "People/SignIns.h"
#include "Settings.h"
#include "Store/Database.h"

#include <filesystem>

namespace bridge {

/// What every operation works with.
struct Service
{
    explicit Service(const Settings& wanted);

    Moment now() const { return settings.clock(); }

    const Settings settings;
    const std::filesystem::path uploads;
    Database database;
    Passwords passwords;
    SignIns signIns;
    SignInThrottle throttle;
    RegistrationThrottle registrations;
};

} // namespace bridge
