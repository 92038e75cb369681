#include "People/Accounts.h"

#include "People/Passwords.h"
#include "Store/Query.h"

namespace bridge {

static const std::string selectAccounts
    = "select u.id, u.local_id, u.email, u.full_name, u.phone, u.city, u.state, u.role, coalesce(n.id, 0),"
      " coalesce(n.active, 0), coalesce(u.business_id, 0), coalesce(b.company_name, '') from users u"
      " left join notaries n on n.user_id = u.id left join businesses b on b.id = u.business_id";

static void fetchInto(Query& query, Account& account)
{
    query.into(account.id).into(account.localId).into(account.email).into(account.fullName);
    query.into(account.phone).into(account.city).into(account.state).into(account.roleWord);
    query.into(account.notaryId).into(account.isNotaryActive);
    query.into(account.businessId).into(account.businessName);
}

// A business belongs to whoever works for it, and to nobody else for having done so once.
static Account withPresentRights(Account account)
{
    if (!account.isBusiness()) {
        account.businessId = 0;
        account.businessName.clear();
    }
    return account;
}

static bool isTaken(soci::session& sql, const std::string& email, Id owner)
{
    Id other = 0;
    Query query(sql, "select id from users where email = :email and id <> :owner");
    return query.bind("email", email).bind("owner", owner).into(other).next();
}

// Gives the account what its role works with.
static void fitOut(soci::session& sql, Id id, Role role, Moment now)
{
    if (role == Role::Business) {
        const bool isWithout
            = Query(sql, "update users set updated_at = :now where id = :id and business_id is null")
                  .bind("now", stamp(now))
                  .bind("id", id)
                  .run()
            > 0;
        if (isWithout) {
            Query(sql,
                "insert into businesses(company_name, created_at) select full_name, :now from users where id "
                "= :id")
                .bind("now", stamp(now))
                .bind("id", id)
                .run();
            const Id business = lastId(sql);
            Query(sql, "update users set business_id = :business where id = :id")
                .bind("business", business)
                .bind("id", id)
                .run();
        }
    }
    if (role == Role::Notary) {
        Query(sql,
            "insert into notaries(user_id, name, email, phone, state, created_at, updated_at)"
            " select id, full_name, email, phone, state, :now, :now from users u where id = :id"
            " and not exists (select 1 from notaries n where n.user_id = u.id)")
            .bind("now", stamp(now))
            .bind("id", id)
            .run();
    } else if (role != Role::Admin) {
        Query(sql, "update notaries set user_id = null, active = 0, updated_at = :now where user_id = :id")
            .bind("now", stamp(now))
            .bind("id", id)
            .run();
    }
}

std::optional<Id> openAccount(soci::session& sql, const NewAccount& account, Moment now)
{
    if (isTaken(sql, account.email, 0))
        return std::nullopt;
    Query(sql,
        "insert into users(local_id, email, password_hash, full_name, phone, city, state, role,"
        " created_at, updated_at) values(:local_id, :email, :hash, :name, :phone, :city, :state, :role,"
        " :now, :now)")
        .bind("local_id", randomText(21))
        .bind("email", account.email)
        .bind("hash", account.passwordHash)
        .bind("name", account.fullName)
        .bind("phone", account.phone)
        .bind("city", account.city)
        .bind("state", account.state)
        .bind("role", account.roleWord)
        .bind("now", stamp(now))
        .run();
    const Id id = lastId(sql);
    fitOut(sql, id, roleOf(account.roleWord).value_or(Role::Client), now);
    return id;
}

std::optional<Account> findAccount(soci::session& sql, Id id)
{
    Account account;
    Query query(sql, selectAccounts + " where u.id = :id");
    query.bind("id", id);
    fetchInto(query, account);
    return query.next() ? std::optional(withPresentRights(account)) : std::nullopt;
}

void eachAccount(soci::session& sql, const RowSink<Account>& take)
{
    Account account;
    Query query(sql, selectAccounts + " order by u.id");
    fetchInto(query, account);
    while (query.next() && take(withPresentRights(account))) { }
}

bool hasAccounts(soci::session& sql)
{
    Id id = 0;
    Query query(sql, "select id from users limit 1");
    return query.into(id).next();
}

Credentials findCredentials(soci::session& sql, const std::string& email)
{
    Credentials credentials;
    Query query(sql, "select id, password_hash from users where email = :email");
    query.bind("email", email).into(credentials.userId).into(credentials.passwordHash);
    return query.next() ? credentials : Credentials();
}

std::string passwordHashOf(soci::session& sql, Id id)
{
    std::string hash;
    Query query(sql, "select password_hash from users where id = :id");
    query.bind("id", id).into(hash).next();
    return hash;
}

void setPasswordHash(soci::session& sql, Id id, const std::string& hash, Moment now)
{
    Query(sql, "update users set password_hash = :hash, updated_at = :now where id = :id")
        .bind("hash", hash)
        .bind("now", stamp(now))
        .bind("id", id)
        .run();
}

bool updateAccount(soci::session& sql, const Account& account, Moment now)
{
    if (isTaken(sql, account.email, account.id))
        return false;
    Query(sql,
        "update users set email = :email, full_name = :name, phone = :phone, city = :city,"
        " state = :state, role = :role, updated_at = :now where id = :id")
        .bind("email", account.email)
        .bind("name", account.fullName)
        .bind("phone", account.phone)
        .bind("city", account.city)
        .bind("state", account.state)
        .bind("role", account.roleWord)
        .bind("now", stamp(now))
        .bind("id", account.id)
        .run();
    fitOut(sql, account.id, roleOf(account.roleWord).value_or(Role::Client), now);
    return true;
}

void closeAccount(soci::session& sql, Id id)
{
    Query(sql,
        "update notaries set (name, email, phone) = (select full_name, email, phone from users where id = "
        ":id)"
        " where user_id = :id")
        .bind("id", id)
        .run();
    Query(sql, "delete from users where id = :id").bind("id", id).run();
}

} // namespace bridge
