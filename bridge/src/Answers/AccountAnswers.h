#pragma once

#include "People/Account.h"
#include "People/SignIns.h"

#include <nlohmann/json.hpp>

namespace bridge {

/// Signing in: tokens under "firebase", the person under "user", the roles beside them.
nlohmann::json signInAnswer(const Account& account, const Tokens& tokens);

/// Registration: tokens at the top in snake case, the person flat under "profile".
nlohmann::json registrationAnswer(const Account& account, const Tokens& tokens);

/// The profile: for accounts with an odd id everything flat, for the others the person under "user".
nlohmann::json profileAnswer(const Account& account);

/// Exchanging a refresh token.
nlohmann::json renewalAnswer(const Account& account, const Tokens& tokens);

/// One row of the office's list of accounts.
nlohmann::json userAnswer(const Account& account);

} // namespace bridge
