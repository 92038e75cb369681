#pragma once

#include "Http/Fields.h"
#include "People/Account.h"
#include "Work/Session.h"

namespace bridge {

/// The session that a booking request asks for, with everything but its id, reference and moments.
/// \throws Problem 422 naming the field when something is missing, 403 when somebody who is no business
///     schedules for a client
Session readBooking(const Fields& fields, const std::string& requestJson, const Account& account);

} // namespace bridge
