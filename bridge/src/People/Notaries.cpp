#include "People/Notaries.h"

#include "People/Accounts.h"
#include "Store/Query.h"

namespace bridge {

static const std::string selectNotaries
    = "select n.id, coalesce(n.user_id, 0), coalesce(u.full_name, n.name) as shown_name,"
      " coalesce(u.email, n.email), coalesce(u.phone, n.phone), n.state, n.county, n.commission_number,"
      " n.commission_expiration_date, n.billing_status, n.active from notaries n"
      " left join users u on u.id = n.user_id";

static void fetchInto(Query& query, Notary& notary)
{
    query.into(notary.id).into(notary.userId).into(notary.name).into(notary.email).into(notary.phone);
    query.into(notary.state).into(notary.county).into(notary.commissionNumber);
    query.into(notary.commissionExpiration).into(notary.billingStatus).into(notary.isActive);
}

void eachNotary(soci::session& sql, const RowSink<Notary>& take)
{
    Notary notary;
    Query query(sql, selectNotaries + " order by shown_name, n.id");
    fetchInto(query, notary);
    while (query.next() && take(notary)) { }
}

std::optional<Notary> findNotary(soci::session& sql, Id id)
{
    Notary notary;
    Query query(sql, selectNotaries + " where n.id = :id");
    query.bind("id", id);
    fetchInto(query, notary);
    return query.next() ? std::optional(notary) : std::nullopt;
}

bool updateNotary(soci::session& sql, const Notary& notary, Moment now)
{
    Query(sql,
        "update notaries set name = :name, email = :email, phone = :phone, state = :state,"
        " county = :county, commission_number = :number, commission_expiration_date = :expiration,"
        " billing_status = :billing, active = :active, updated_at = :now where id = :id")
        .bind("name", notary.name)
        .bind("email", notary.email)
        .bind("phone", notary.phone)
        .bind("state", notary.state)
        .bind("county", notary.county)
        .bind("number", notary.commissionNumber)
        .bind("expiration", notary.commissionExpiration)
        .bind("billing", notary.billingStatus)
        .bind("active", notary.isActive)
        .bind("now", stamp(now))
        .bind("id", notary.id)
        .run();
    if (std::optional<Account> account = findAccount(sql, notary.userId)) {
        account->fullName = notary.name;
        account->email = notary.email;
        account->phone = notary.phone;
        return updateAccount(sql, *account, now);
    }
    return true;
}

void linkNotary(soci::session& sql, Id id, Id userId)
{
    Query(sql, "update notaries set user_id = :user where id = :id")
        .bind("user", userId)
        .bind("id", id)
        .run();
}

void deleteNotary(soci::session& sql, Id id)
{
    const std::optional<Notary> notary = findNotary(sql, id);
    Query(sql, "delete from notaries where id = :id").bind("id", id).run();
    const std::optional<Account> account = findAccount(sql, notary ? notary->userId : 0);
    if (account && roleOf(account->roleWord) == Role::Notary)
        Query(sql, "update users set role = 'client' where id = :id").bind("id", account->id).run();
}

} // namespace bridge
