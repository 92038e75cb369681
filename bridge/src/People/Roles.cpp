#include "People/Roles.h"

#include "Text.h"

#include <map>

namespace bridge {

std::optional<Role> roleOf(const std::string& word)
{
    static const std::map<std::string, Role> words{
        {"client", Role::Client},
        {"business", Role::Business},
        {"business_scheduler", Role::Business},
        {"title_agency", Role::Business},
        {"law_firm", Role::Business},
        {"notary", Role::Notary},
        {"remote_notary", Role::Notary},
        {"remote_notary_provider", Role::Notary},
        {"signing_agent", Role::Notary},
        {"admin", Role::Admin},
        {"super_admin", Role::Admin},
        {"administrator", Role::Admin},
        {"staff", Role::Admin},
    };
    const auto found = words.find(lowerCased(word));
    return found == words.end() ? std::nullopt : std::optional(found->second);
}

std::string nameOf(Role role)
{
    switch (role) {
    case Role::Client:
        return "client";
    case Role::Business:
        return "business";
    case Role::Notary:
        return "notary";
    case Role::Admin:
        return "admin";
    }
    return {};
}

} // namespace bridge
