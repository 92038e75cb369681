#pragma once

#include "Moment.h"
#include "Store/Id.h"
#include "Store/Soci.h"

#include <optional>
#include <string>
#include <vector>

namespace bridge {

/// A record of somebody who walked into the office. Every field but the id is text as it was written.
struct WalkIn
{
    Id id = 0;
    std::string status = "complete";
    std::string contactName;
    std::string contactEmail;
    std::string contactPhone;
    std::string documentType;
    std::string scheduledDate;
    std::string scheduledTime;
    std::string notes;
    std::vector<std::string> signerNames;
    std::string source;
    long long createdAt = 0;
    long long updatedAt = 0;
};

/// Newest first.
void eachWalkIn(soci::session& sql, const RowSink<WalkIn>& take);

std::optional<WalkIn> findWalkIn(soci::session& sql, Id id);

Id addWalkIn(soci::session& sql, const WalkIn& record, Moment now);

/// Stores all but the signers and the source.
void updateWalkIn(soci::session& sql, const WalkIn& record, Moment now);

/// False when there is none.
bool deleteWalkIn(soci::session& sql, Id id);

} // namespace bridge
