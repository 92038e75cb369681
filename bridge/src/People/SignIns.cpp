#include "People/SignIns.h"

#include "People/Passwords.h"
#include "Store/Query.h"

namespace bridge {

static constexpr std::size_t tokenBytes = 32;
static constexpr std::chrono::seconds secondChance(60);

SignIns::SignIns(Clock clock, std::chrono::seconds idTokenLifetime)
    : clock_(std::move(clock)), lifetime_(idTokenLifetime)
{ }

Tokens SignIns::begin(soci::session& sql, Id userId) const
{
    Query(sql, "insert into sign_ins(user_id, created_at) values(:user, :now)")
        .bind("user", userId)
        .bind("now", stamp(clock_()))
        .run();
    return issue(sql, lastId(sql));
}

std::optional<Bearer> SignIns::bearerOf(soci::session& sql, const std::string& idToken) const
{
    Bearer bearer;
    Query query(sql,
        "select s.user_id, s.id from id_tokens t join sign_ins s on s.id = t.sign_in_id"
        " where t.hash = :hash and t.expires_at > :now");
    query.bind("hash", fingerprint(idToken)).bind("now", stamp(clock_()));
    query.into(bearer.userId).into(bearer.signInId);
    return query.next() ? std::optional(bearer) : std::nullopt;
}

std::optional<std::pair<Tokens, Bearer>> SignIns::renew(
    soci::session& sql, const std::string& refreshToken) const
{
    const std::string hash = fingerprint(refreshToken);
    Bearer bearer;
    std::string successor;
    long long replacedAt = 0;
    Query query(sql,
        "select s.user_id, s.id, t.successor, t.replaced_at from refresh_tokens t"
        " join sign_ins s on s.id = t.sign_in_id where t.hash = :hash");
    query.bind("hash", hash);
    query.into(bearer.userId).into(bearer.signInId).into(successor).into(replacedAt);
    if (!query.next())
        return std::nullopt;

    const long long now = stamp(clock_());
    if (!successor.empty()) {
        if (now - replacedAt > std::chrono::milliseconds(secondChance).count())
            return std::nullopt;
        // Gone when it has been used itself: then its holder stored it, and this is somebody else.
        const long long removed
            = Query(sql, "delete from refresh_tokens where hash = :hash and successor = ''")
                  .bind("hash", successor)
                  .run();
        if (removed == 0)
            return std::nullopt;
    } else {
        // The token before this one has served its purpose.
        Query(sql, "delete from refresh_tokens where successor = :hash").bind("hash", hash).run();
    }

    const Tokens tokens = issue(sql, bearer.signInId);
    Query(sql,
        "update refresh_tokens set successor = :successor,"
        " replaced_at = case replaced_at when 0 then :now else replaced_at end where hash = :hash")
        .bind("successor", fingerprint(tokens.refreshToken))
        .bind("now", now)
        .bind("hash", hash)
        .run();
    return std::pair(tokens, bearer);
}

void SignIns::endAll(soci::session& sql, Id userId, Id kept) const
{
    Query(sql, "delete from sign_ins where user_id = :user and id <> :kept")
        .bind("user", userId)
        .bind("kept", kept)
        .run();
}

Tokens SignIns::issue(soci::session& sql, Id signInId) const
{
    const Moment now = clock_();
    Tokens tokens{randomText(tokenBytes), randomText(tokenBytes), lifetime_};
    Query(sql, "delete from id_tokens where expires_at <= :now").bind("now", stamp(now)).run();
    Query(sql, "insert into id_tokens(hash, sign_in_id, expires_at) values(:hash, :sign_in, :expires)")
        .bind("hash", fingerprint(tokens.idToken))
        .bind("sign_in", signInId)
        .bind("expires", stamp(now + lifetime_))
        .run();
    Query(sql, "insert into refresh_tokens(hash, sign_in_id) values(:hash, :sign_in)")
        .bind("hash", fingerprint(tokens.refreshToken))
        .bind("sign_in", signInId)
        .run();
    return tokens;
}

} // namespace bridge
