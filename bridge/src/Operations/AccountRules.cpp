#include "Operations/AccountRules.h"

#include "Http/Problem.h"

namespace bridge {

static constexpr std::size_t shortestPassword = 6;

void requireLongEnough(const std::string& password, const std::string& field)
{
    if (password.size() < shortestPassword)
        throw invalidField(field, "Password must be at least 6 characters.");
}

void readContact(const Fields& fields, Account& account)
{
    if (fields.has("full_name") || fields.has("name"))
        account.fullName = fields.firstText({"full_name", "name"});
    fields.take({"email"}, account.email);
    fields.take({"phone"}, account.phone);
    fields.take({"city"}, account.city);
    fields.take({"state"}, account.state);
    if (account.fullName.empty())
        throw invalidField("full_name", "Enter a full name.");
    if (!isEmailAddress(account.email))
        throw invalidField("email", "Enter a valid email address.");
}

std::optional<std::string> readNewPassword(const Fields& fields)
{
    const std::string password = fields.firstText({"new_password", "password"});
    if (password.empty())
        return std::nullopt;
    requireLongEnough(password, "password");
    return password;
}

} // namespace bridge
