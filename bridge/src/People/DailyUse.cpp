#include "People/DailyUse.h"

#include "Store/Query.h"

namespace bridge {

static const char* nameOf(Use what)
{
    switch (what) {
    case Use::Bookings:
        return "bookings";
    case Use::Messages:
        return "messages";
    case Use::Documents:
        return "documents";
    case Use::DocumentBytes:
        return "document_bytes";
    }
    return "";
}

long long usedToday(soci::session& sql, Id userId, Use what, Moment now)
{
    long long amount = 0;
    Query query(sql, "select amount from daily_use where user_id = :user and day = :day and what = :what");
    query.bind("user", userId).bind("day", newYorkDate(now)).bind("what", nameOf(what)).into(amount).next();
    return amount;
}

bool use(soci::session& sql, Id userId, Use what, long long amount, long long limit, Moment now)
{
    if (usedToday(sql, userId, what, now) > limit - amount)
        return false;
    Query(sql,
        "insert into daily_use(user_id, day, what, amount) values(:user, :day, :what, :amount)"
        " on conflict(user_id, day, what) do update set amount = daily_use.amount + excluded.amount")
        .bind("user", userId)
        .bind("day", newYorkDate(now))
        .bind("what", nameOf(what))
        .bind("amount", amount)
        .run();
    return true;
}

void purgeDailyUse(soci::session& sql, Moment now)
{
    Query(sql, "delete from daily_use where day <> :day").bind("day", newYorkDate(now)).run();
}

} // namespace bridge
