#pragma once

#include "Store/Soci.h"

namespace bridge {

/// Makes the tables that are missing. The database remembers in `user_version` how many of the steps it has
/// been through.
/// \throws std::runtime_error when it has been through more than are known here
void bringSchemaUpToDate(soci::session& sql);

} // namespace bridge
