#pragma once

#include "People/Roles.h"
#include "Store/Id.h"

#include <string>

namespace bridge {

/// A person who can sign in, with the rights that follow from the role and from a notary profile.
struct Account
{
    Id id = 0;
    /// The identity that belongs to the person's tokens; never shown on a screen.
    std::string localId;
    std::string email;
    std::string fullName;
    std::string phone;
    std::string city;
    std::string state;
    /// The role word as the office wrote it, such as "title_agency".
    std::string roleWord;
    /// 0 without a notary profile.
    Id notaryId = 0;
    bool isNotaryActive = false;
    /// 0 without a business.
    Id businessId = 0;
    std::string businessName;
    /// The sign-in that the request came with; 0 outside of one.
    Id signInId = 0;

    bool isBusiness() const { return roleOf(roleWord) == Role::Business; }
    bool isNotary() const { return notaryId != 0; }
    bool isAdmin() const { return roleOf(roleWord) == Role::Admin; }
};

} // namespace bridge
