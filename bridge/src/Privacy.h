#pragma once

#include <filesystem>

namespace bridge {

/// Takes everybody else's access to a data folder away, and to what the server keeps in it: keys, tokens and
/// what people wrote. A folder that was restored from a backup, or opened to look into it, may have been
/// wider. \throws std::runtime_error when the folder is one that everybody shares, or its access cannot be
/// changed
void keepForOwner(const std::filesystem::path& data);

} // namespace bridge
