#pragma once

#include "Work/Messages.h"
#include "Work/Session.h"
#include "Work/Uploads.h"

#include <nlohmann/json.hpp>

#include <vector>

namespace bridge {

/// A session as lists and details show it.
nlohmann::json sessionAnswer(const Session& session);

/// One session, wrapped as its variant has it: under "data", under "session", or not at all.
nlohmann::json wrappedSession(const Session& session);

/// What booking a session tells of it: always the reference, and the id in one of four places or nowhere.
nlohmann::json createdAnswer(const Session& session);

nlohmann::json messageAnswer(const Message& message);

/// Where a browser finds a document.
/// \param origin  scheme, host and port
std::string addressOf(const Upload& upload, const std::string& origin, Moment now);

/// \param address  empty for who may not open it
nlohmann::json uploadAnswer(const Upload& upload, const std::string& address);

/// One answer for each of the records.
template <typename Record, typename Shape>
nlohmann::json listOf(const std::vector<Record>& records, Shape&& shape)
{
    nlohmann::json list = nlohmann::json::array();
    for (const Record& record : records)
        list.push_back(shape(record));
    return list;
}

} // namespace bridge
