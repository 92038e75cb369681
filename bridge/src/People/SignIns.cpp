#include "People/SignIns.h"

#include "People/Passwords.h"
#include "Store/Query.h"

namespace bridge {

static constexpr std::size_t tokenBytes = 32;
static constexpr std::chrono::seconds secondChance(60);
static constexpr std::chrono::days longestUnused(90);
/// How long a used token is known, so that whoever presents it late is noticed.
static constexpr std::chrono::days usedAreKept(30);

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

std::optional<SignIns::Stored> SignIns::find(soci::session& sql, const std::string& hash) const
{
    Stored token;
    Query query(sql,
        "select s.user_id, s.id, t.successor, t.issued_at, t.replaced_at from refresh_tokens t"
        " join sign_ins s on s.id = t.sign_in_id where t.hash = :hash");
    query.bind("hash", hash);
    query.into(token.bearer.userId).into(token.bearer.signInId).into(token.successor);
    query.into(token.issuedAt).into(token.replacedAt);
    return query.next() ? std::optional(token) : std::nullopt;
}

// Ends the tokens that replaced this one, unless it is too late: when they have been used, their holder has
// stored them, and this is somebody else.
bool SignIns::takeBack(soci::session& sql, const Stored& token) const
{
    if (stamp(clock_()) - token.replacedAt > std::chrono::milliseconds(secondChance).count())
        return false;
    std::string idToken;
    Query query(sql, "select id_token from refresh_tokens where hash = :hash and successor = ''");
    if (!query.bind("hash", token.successor).into(idToken).next())
        return false;
    Query(sql, "delete from id_tokens where hash = :hash").bind("hash", idToken).run();
    Query(sql, "delete from refresh_tokens where hash = :hash").bind("hash", token.successor).run();
    return true;
}

std::optional<std::pair<Tokens, Bearer>> SignIns::renew(
    soci::session& sql, const std::string& refreshToken) const
{
    const std::string hash = fingerprint(refreshToken);
    const std::optional<Stored> token = find(sql, hash);
    if (!token)
        return std::nullopt;
    const long long now = stamp(clock_());
    const bool isUsed = !token->successor.empty();
    if (!isUsed && now - token->issuedAt > std::chrono::milliseconds(longestUnused).count())
        return std::nullopt;
    if (isUsed && !takeBack(sql, *token)) {
        Query(sql, "delete from sign_ins where id = :id").bind("id", token->bearer.signInId).run();
        return std::nullopt;
    }
    const Tokens tokens = issue(sql, token->bearer.signInId);
    Query(sql,
        "update refresh_tokens set successor = :successor,"
        " replaced_at = case replaced_at when 0 then :now else replaced_at end where hash = :hash")
        .bind("successor", fingerprint(tokens.refreshToken))
        .bind("now", now)
        .bind("hash", hash)
        .run();
    return std::pair(tokens, token->bearer);
}

void SignIns::endAll(soci::session& sql, Id userId, Id kept) const
{
    Query(sql, "delete from sign_ins where user_id = :user and id <> :kept")
        .bind("user", userId)
        .bind("kept", kept)
        .run();
}

void SignIns::purge(soci::session& sql) const
{
    const Moment now = clock_();
    Query(sql, "delete from id_tokens where expires_at <= :now").bind("now", stamp(now)).run();
    Query(sql,
        "delete from refresh_tokens where (successor = '' and issued_at < :unused)"
        " or (successor <> '' and replaced_at < :used)")
        .bind("unused", stamp(now - longestUnused))
        .bind("used", stamp(now - usedAreKept))
        .run();
    Query(sql,
        "delete from sign_ins where not exists (select 1 from refresh_tokens t where t.sign_in_id = "
        "sign_ins.id)"
        " and not exists (select 1 from id_tokens t where t.sign_in_id = sign_ins.id)")
        .run();
}

Tokens SignIns::issue(soci::session& sql, Id signInId) const
{
    const Moment now = clock_();
    Tokens tokens{randomText(tokenBytes), randomText(tokenBytes), lifetime_};
    Query(sql, "insert into id_tokens(hash, sign_in_id, expires_at) values(:hash, :sign_in, :expires)")
        .bind("hash", fingerprint(tokens.idToken))
        .bind("sign_in", signInId)
        .bind("expires", stamp(now + lifetime_))
        .run();
    Query(sql,
        "insert into refresh_tokens(hash, sign_in_id, issued_at, id_token)"
        " values(:hash, :sign_in, :now, :id_token)")
        .bind("hash", fingerprint(tokens.refreshToken))
        .bind("sign_in", signInId)
        .bind("now", stamp(now))
        .bind("id_token", fingerprint(tokens.idToken))
        .run();
    return tokens;
}

} // namespace bridge
