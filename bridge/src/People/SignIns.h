#pragma once

#include "Moment.h"
#include "Store/Database.h"
#include "Store/Id.h"

#include <chrono>
#include <optional>
#include <string>

namespace bridge {

/// What a client holds after signing in.
struct Tokens
{
    /// Proves who asks, until it expires.
    std::string idToken;
    /// Buys new tokens, once.
    std::string refreshToken;
    std::chrono::seconds lifetime{};
};

/// Who a token belongs to.
struct Bearer
{
    Id userId = 0;
    Id signInId = 0;
};

/// The sign-ins of all accounts and their tokens. Tokens are random and meaningless, and only their
/// fingerprints are stored.
class SignIns
{
public:
    SignIns(Clock clock, std::chrono::seconds idTokenLifetime);

    Tokens begin(soci::session& sql, Id userId) const;

    /// None when the ID token is unknown or has expired.
    std::optional<Bearer> bearerOf(soci::session& sql, const std::string& idToken) const;

    /// Exchanges a refresh token for new ones and invalidates it. A client that was cut off before it could
    /// store them may present the same token again for a minute, as long as the new refresh token was not
    /// used; the tokens of the lost answer end then.
    ///
    /// None when the token is unknown, or was not used for 90 days, or is presented again when it no longer
    /// may be: then two hold it, and as nobody can tell which of them was meant to, its sign-in ends for
    /// both.
    std::optional<std::pair<Tokens, Bearer>> renew(soci::session& sql, const std::string& refreshToken) const;

    /// \param kept  a sign-in that goes on; 0 for none
    void endAll(soci::session& sql, Id userId, Id kept = 0) const;

    /// Deletes the tokens that have ended, used refresh tokens after 30 days, and sign-ins without any token.
    void purge(soci::session& sql) const;

private:
    /// A refresh token as it is stored.
    struct Stored
    {
        Bearer bearer;
        std::string successor;
        long long issuedAt = 0;
        long long replacedAt = 0;
    };

    std::optional<Stored> find(soci::session& sql, const std::string& hash) const;
    bool takeBack(soci::session& sql, const Stored& token) const;
    Tokens issue(soci::session& sql, Id signInId) const;

    Clock clock_;
    std::chrono::seconds lifetime_;
};

} // namespace bridge
