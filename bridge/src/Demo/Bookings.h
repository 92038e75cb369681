#pragma once

#include "Store/Id.h"

#include <vector>

namespace bridge {

/// A session of the demo data. People are named by their place in demoPeople(), counted from 1; days are
/// counted from the day of filling.
struct DemoBooking
{
    Id owner;
    /// Empty for the owner's own session, else the business's client.
    const char* client;
    const char* status;
    /// 0 for none.
    Id notary;
    int bookedDay;
    int preferredDay;
    /// Empty for as soon as possible.
    const char* time;
    const char* documentType;
    /// Separated by commas.
    const char* signers;
    const char* details;
    int acts;
    const char* fee;
    const char* note;
    const char* messageOfOwner;
    const char* messageOfNotary;
    /// The file name of a document, or empty.
    const char* document;
};

const std::vector<DemoBooking>& demoBookings();

struct DemoWalkIn
{
    const char* status;
    const char* name;
    const char* email;
    const char* phone;
    const char* documentType;
    int day;
    const char* time;
    const char* notes;
    const char* signers;
    const char* source;
};

const std::vector<DemoWalkIn>& demoWalkIns();

} // namespace bridge
