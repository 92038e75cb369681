#pragma once

#include "Store/Id.h"

#include <vector>

namespace bridge {

/// Somebody of the demo data. Accounts get the ids 1, 2, 3 in the order of demoPeople().
struct DemoPerson
{
    const char* email;
    const char* name;
    const char* phone;
    const char* city;
    const char* state;
    /// The role word of the account.
    const char* role;
    const char* business;
    /// County and number of a notary's commission; empty for everybody else.
    const char* county;
    const char* commission;
};

const std::vector<DemoPerson>& demoPeople();

inline constexpr const char* demoPassword = "quorvel-demo";

} // namespace bridge
