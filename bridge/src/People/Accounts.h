#pragma once

#include "Moment.h"
#include "People/Account.h"
#include "Store/Soci.h"

#include <optional>
#include <string>

namespace bridge {

/// What is needed to open an account. The e-mail address is unique, whatever its capitals.
struct NewAccount
{
    std::string email;
    std::string passwordHash;
    std::string fullName;
    std::string phone;
    std::string city;
    std::string state;
    std::string roleWord = "client";
};

/// \returns none when the e-mail address is taken
[[nodiscard]] std::optional<Id> openAccount(soci::session& sql, const NewAccount& account, Moment now);

std::optional<Account> findAccount(soci::session& sql, Id id);

/// Every account, by id.
void eachAccount(soci::session& sql, const RowSink<Account>& take);

bool hasAccounts(soci::session& sql);

/// What signing in needs; empty for an unknown address.
struct Credentials
{
    Id userId = 0;
    std::string passwordHash;
};
Credentials findCredentials(soci::session& sql, const std::string& email);
std::string passwordHashOf(soci::session& sql, Id id);
void setPasswordHash(soci::session& sql, Id id, const std::string& hash, Moment now);

/// Stores name, contact, place and role. A new business or notary role gets its business or notary profile; a
/// role that is no longer a notary's leaves the profile behind, inactive, unless it is an admin's.
/// \returns false, and nothing is stored, when the e-mail address is taken
[[nodiscard]] bool updateAccount(soci::session& sql, const Account& account, Moment now);

/// Ends the account and its sign-ins. Sessions that it owned stay.
void closeAccount(soci::session& sql, Id id);

} // namespace bridge
