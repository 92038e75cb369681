#pragma once

#include "Store/Id.h"

#include <string>
#include <vector>

namespace bridge {

/// Somebody who signs in a session.
struct Signer
{
    std::string name;
    std::string email;
    std::string phone;
    std::string idType;
    std::string idExpiration;
};

/// A remote notary session: a booking and what became of it. Dates and times are the texts that people wrote.
struct Session
{
    Id id = 0;
    /// "RN-20250309-0001": the day of the booking and its number on that day.
    std::string referenceId;
    /// Who booked it; 0 when that account is gone.
    Id ownerId = 0;
    std::string ownerName;
    std::string ownerEmail;
    /// The business that scheduled it for a client of its own, or 0.
    Id businessId = 0;
    Id notaryId = 0;
    std::string notaryName;
    /// One of the words of isStatus().
    std::string status = "requested";
    std::string statusNote;
    std::string contactName;
    std::string contactEmail;
    std::string contactPhone;
    std::string clientName;
    std::string clientEmail;
    std::string clientPhone;
    bool asap = false;
    std::string retrievalOption;
    std::string documentType;
    bool actUnknown = false;
    long long actCount = 0;
    std::string details;
    std::vector<Signer> signers;
    bool requiresWitness = false;
    std::string witnessName;
    bool needsApostille = false;
    std::string notes;
    std::string preferredDate;
    std::string preferredTime;
    std::string scheduledDate;
    std::string scheduledTime;
    std::string proposedFee;
    std::string timezone;
    std::string bookingSource;
    /// The request that booked it, as it came.
    std::string requestJson;
    long long createdAt = 0;
    long long updatedAt = 0;
};

/// "requested", "pending", "scheduled", "confirmed", "rescheduled", "completed", "cancelled".
bool isStatus(const std::string& word);

/// Neither completed nor cancelled.
bool mayBeCancelled(const std::string& status);

/// Still waiting for a notary to accept it, as long as none is assigned.
bool isOpenStatus(const std::string& status);

} // namespace bridge
