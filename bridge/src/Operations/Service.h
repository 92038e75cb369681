#pragma once

#include "Http/Call.h"
#include "People/Account.h"
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

    /// Runs `work(soci::session&, const Account& self)` in a transaction of the database, with the account
    /// that asks as it is in that very transaction: rights that have ended since the request began count no
    /// more.
    /// \throws Problem 401 without a valid ID token, 403 when the account may not call the operation
    template <typename Work>
    auto read(Call& call, Work&& work)
    {
        return database.read([&](soci::session& sql) { return work(sql, admitted(sql, call)); });
    }
    template <typename Work>
    auto write(Call& call, Work&& work)
    {
        return database.write([&](soci::session& sql) { return work(sql, admitted(sql, call)); });
    }

    const Settings settings;
    const std::filesystem::path uploads;
    Database database;
    Passwords passwords;
    SignIns signIns;
    SignInThrottle throttle;
    RegistrationThrottle registrations;
    AnswerBudget answers{settings.answerMemory};

private:
    Account admitted(soci::session& sql, Call& call) const;
};

/// Deletes what nobody can use any more: tokens that have ended, sign-ins without any, counts of days that
/// are over.
void tidyUp(Service& service);

} // namespace bridge
