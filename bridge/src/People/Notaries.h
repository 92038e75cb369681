#pragma once

#include "Moment.h"
#include "Store/Id.h"
#include "Store/Soci.h"

#include <optional>
#include <string>

namespace bridge {

/// A notary's profile. Name, e-mail and phone are those of the linked account while there is one.
struct Notary
{
    Id id = 0;
    /// The account that signs in as this notary, or 0.
    Id userId = 0;
    std::string name;
    std::string email;
    std::string phone;
    std::string state;
    std::string county;
    std::string commissionNumber;
    std::string commissionExpiration;
    std::string billingStatus = "active";
    bool isActive = true;
};

/// By name.
void eachNotary(soci::session& sql, const RowSink<Notary>& take);

std::optional<Notary> findNotary(soci::session& sql, Id id);

/// Stores the profile's own fields, and those of a linked account in the profile as well.
/// \returns false when the e-mail address belongs to another account: the caller takes everything back
[[nodiscard]] bool updateNotary(soci::session& sql, const Notary& notary, Moment now);

/// Makes an account the one that signs in as this notary.
void linkNotary(soci::session& sql, Id id, Id userId);

/// Removes the profile. Sessions that were assigned to it are so no longer; a linked account stays, as a
/// client's when it was a notary's.
void deleteNotary(soci::session& sql, Id id);

} // namespace bridge
