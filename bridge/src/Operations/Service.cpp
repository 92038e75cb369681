#include "Operations/Service.h"

#include "Http/Problem.h"
#include "People/Accounts.h"
#include "People/DailyUse.h"
#include "Work/UploadStore.h"
#include "Work/Uploads.h"

#include <stdexcept>

namespace bridge {

static std::filesystem::path made(const std::filesystem::path& folder)
{
    std::filesystem::create_directories(folder);
    return folder;
}

/// A database that is made now knows no document, so that documents without one belong to another that is
/// missing.
static std::filesystem::path databaseBeside(const std::filesystem::path& uploads, std::filesystem::path file)
{
    const bool isThere = std::filesystem::exists(file) && std::filesystem::file_size(file) > 0;
    if (!isThere && !std::filesystem::is_empty(uploads)) {
        throw std::runtime_error("There are files in " + uploads.string() + ", but " + file.string()
            + " is missing. Put the database back, or move the files away to begin anew.");
    }
    return file;
}

Service::Service(const Settings& wanted)
    : settings(wanted), uploads(made(wanted.data / "uploads")),
      database(databaseBeside(uploads, wanted.data / "bridge.sqlite")), passwords(wanted.passwordCost),
      signIns(wanted.clock, wanted.idTokenLifetime), throttle(wanted.steadyClock),
      registrations(wanted.steadyClock, wanted.mostRegistrations)
{
    setAsideUnknown(uploads, database.read([](soci::session& sql) { return listUploadPaths(sql); }),
        wanted.data / "lost");
}

static bool isAdmitted(const Account& account, Access access)
{
    switch (access) {
    case Access::Everybody:
    case Access::SignedIn:
        return true;
    case Access::Business:
        return account.isBusiness();
    case Access::Notary:
        return account.isNotary();
    case Access::Admin:
        return account.isAdmin();
    }
    return false;
}

Account Service::admitted(soci::session& sql, Call& call) const
{
    const std::optional<Bearer> bearer = signIns.bearerOf(sql, call.bearerToken());
    std::optional<Account> account = bearer ? findAccount(sql, bearer->userId) : std::nullopt;
    if (!account)
        throw signInNeeded();
    if (!isAdmitted(*account, call.access()))
        throw forbidden();
    account->signInId = bearer->signInId;
    call.noteAdmission();
    return *account;
}

void tidyUp(Service& service)
{
    service.database.write([&service](soci::session& sql) {
        service.signIns.purge(sql);
        purgeDailyUse(sql, service.now());
    });
}

} // namespace bridge
