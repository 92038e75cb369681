#include "support/TemporaryFolder.h"

#include <stdexcept>
#include <stdlib.h>
#include <string>
#include <unistd.h>

// The server waits for the disk at every write, so a folder in memory is used where there is one.
static std::filesystem::path parent()
{
    const std::filesystem::path memory = "/dev/shm";
    return ::access(memory.c_str(), W_OK) == 0 ? memory : std::filesystem::temp_directory_path();
}

TemporaryFolder::TemporaryFolder()
{
    std::string pattern = parent() / "quorvel bridge-XXXXXX";
    if (!::mkdtemp(pattern.data()))
        throw std::runtime_error("no temporary folder");
    path_ = pattern;
}

TemporaryFolder::~TemporaryFolder()
{
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}
