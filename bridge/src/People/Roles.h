#pragma once

#include <optional>
#include <string>

namespace bridge {

/// What an account is, first of all. A notary profile makes a notary of an admin too.
enum class Role
{
    Client,
    Business,
    Notary,
    Admin
};

/// The role behind a word such as "client", "law_firm" or "staff", in any capitals; none for other words.
std::optional<Role> roleOf(const std::string& word);

/// "client", "business", "notary" or "admin".
std::string nameOf(Role role);

} // namespace bridge
