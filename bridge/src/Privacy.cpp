#include "Privacy.h"

#include <stdexcept>

namespace bridge {

namespace fs = std::filesystem;

static void narrow(const fs::path& path)
{
    constexpr fs::perms others = fs::perms::group_all | fs::perms::others_all;
    const fs::file_status status = fs::status(path);
    if (!fs::exists(status) || (status.permissions() & others) == fs::perms::none)
        return;
    std::error_code error;
    fs::permissions(path, others, fs::perm_options::remove, error);
    if (error)
        throw std::runtime_error(
            "Others than its owner may use " + path.string() + ", and that cannot be changed.");
}

void keepForOwner(const fs::path& data)
{
    if ((fs::status(data).permissions() & fs::perms::sticky_bit) != fs::perms::none)
        throw std::runtime_error(
            "Everybody shares the folder " + data.string() + "; the data needs one of its own.");
    narrow(data);
    for (const char* name : {"bridge.sqlite", "bridge.sqlite-wal", "bridge.sqlite-shm", "lock", "uploads",
             "lost", "tls", "tls/ca.pem", "tls/ca.key", "tls/server.pem", "tls/server.key"})
        narrow(data / name);
}

} // namespace bridge
