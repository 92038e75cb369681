#pragma once

#include "Work/Sessions.h"

namespace bridge {

/// The session, when the account may see it. \throws Problem 404
Session visibleSession(soci::session& sql, const Account& account, Id id);

/// A visible session that the account takes part in, and so may write into.
/// \throws Problem 404, 403
Session writableSession(soci::session& sql, const Account& account, Id id);

} // namespace bridge
