#pragma once

#include "People/BusinessClients.h"
#include "People/Notaries.h"
#include "Work/Session.h"
#include "Work/WalkIns.h"

#include <nlohmann/json.hpp>

namespace bridge {

/// A session and a walk-in record, as the office's one list of records shows them.
nlohmann::json remoteRecordAnswer(const Session& session);
nlohmann::json walkInAnswer(const WalkIn& record);

nlohmann::json notaryAnswer(const Notary& notary);

nlohmann::json businessClientAnswer(const BusinessClient& client);

} // namespace bridge
