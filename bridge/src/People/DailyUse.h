#pragma once

#include "Moment.h"
#include "Store/Id.h"
#include "Store/Soci.h"

namespace bridge {

/// What is counted of an account, each day of New York anew.
enum class Use
{
    Bookings,
    Messages,
    Documents,
    DocumentBytes,
};

/// Counts so much more of an account's day; false, and nothing is counted, when that is more than the limit.
[[nodiscard]] bool use(
    soci::session& sql, Id userId, Use what, long long amount, long long limit, Moment now);

/// How much an account has used today.
long long usedToday(soci::session& sql, Id userId, Use what, Moment now);

/// Forgets the days before today.
void purgeDailyUse(soci::session& sql, Moment now);

} // namespace bridge
