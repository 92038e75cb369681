#pragma once

#include "Http/Problem.h"
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

/// Counts so much more of an account's day.
/// \throws Problem 429 when that is more than the limit
void use(soci::session& sql, Id userId, Use what, long long amount, long long limit, Moment now);

/// How much an account has used today.
long long usedToday(soci::session& sql, Id userId, Use what, Moment now);

/// 429: enough for today.
Problem enoughForToday();

/// Forgets the days before today.
void purgeDailyUse(soci::session& sql, Moment now);

} // namespace bridge
