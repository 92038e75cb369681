#pragma once

#include "Moment.h"
#include "People/Account.h"
#include "Store/Soci.h"
#include "Work/Session.h"

#include <optional>
#include <string>
#include <vector>

namespace bridge {

/// Which sessions a list shows.
enum class Scope
{
    Own,
    Business,
    AssignedToNotary,
    OpenCalls,
    All
};

/// The sessions of a list, the newest first.
/// \param status  only those in it; empty for all
void eachSession(soci::session& sql, const Account& account, Scope scope, const std::string& status,
    const RowSink<Session>& take);

/// The session when the account may see it: its own, its business's, one assigned to it, an open call for a
/// notary, any for an admin. One query decides, so that what is absent and what is somebody else's cost the
/// same.
std::optional<Session> findVisibleSession(soci::session& sql, const Account& account, Id id);

/// Whether the session is the account's work and not just an open call that it may see: its own, its
/// business's, one assigned to it, any for an admin.
bool takesPart(const Account& account, const Session& session);

/// Stores a new session under the next reference of the day.
Session createSession(soci::session& sql, Session session, Moment now);

/// Stores what the office and the notary may change, and another status or note in the history. With another
/// notary the addresses that were told of its documents end.
/// \param by  the account that changes it
void updateSession(soci::session& sql, const Session& session, Id by, Moment now);

enum class AcceptResult
{
    Accepted, ///< now, or by the same notary before
    Taken, ///< by another notary
    NotOpen, ///< cancelled or completed meanwhile
    Absent,
};

/// Assigns an open call to a notary and schedules it for the preferred time.
AcceptResult acceptSession(soci::session& sql, const Account& notary, Id id, Moment now);

/// False when there is none. Messages, documents and history go with it; their files stay for the caller.
bool deleteSession(soci::session& sql, Id id);

} // namespace bridge
