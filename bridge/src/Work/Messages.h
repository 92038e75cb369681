#pragma once

#include "Moment.h"
#include "People/Account.h"
#include "Store/Soci.h"

#include <string>

namespace bridge {

/// One message of a session's thread. The sender is kept as it was then.
struct Message
{
    Id id = 0;
    std::string senderType;
    std::string senderName;
    std::string senderEmail;
    std::string text;
    long long createdAt = 0;
};

/// Oldest first.
void eachMessage(soci::session& sql, Id sessionId, const RowSink<Message>& take);

Message addMessage(
    soci::session& sql, Id sessionId, const Account& sender, const std::string& text, Moment now);

} // namespace bridge
