#pragma once

#include "Moment.h"
#include "Store/Id.h"
#include "Store/Soci.h"

#include <string>

namespace bridge {

/// Somebody for whom a business schedules sessions.
struct BusinessClient
{
    Id id = 0;
    std::string name;
    std::string email;
    std::string phone;
};

/// The newest first.
void eachBusinessClient(soci::session& sql, Id businessId, const RowSink<BusinessClient>& take);

/// Adds the client, or renews name and phone of the one with the same e-mail address.
void rememberBusinessClient(soci::session& sql, Id businessId, const BusinessClient& client, Moment now);

} // namespace bridge
