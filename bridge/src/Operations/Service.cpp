#include "Operations/Service.h"

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

} // namespace bridge
