#include "Operations/Service.h"

#include "Work/UploadStore.h"
#include "Work/Uploads.h"

namespace bridge {

static std::filesystem::path made(const std::filesystem::path& folder)
{
    std::filesystem::create_directories(folder);
    return folder;
}

Service::Service(const Settings& wanted)
    : settings(wanted), uploads(made(wanted.data / "uploads")), database(wanted.data / "bridge.sqlite"),
      passwords(wanted.passwordCost), signIns(wanted.clock, wanted.idTokenLifetime), throttle(wanted.clock)
{
    removeOrphans(uploads, database.read([](soci::session& sql) { return listUploadPaths(sql); }));
}

} // namespace bridge
