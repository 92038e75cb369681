#include "SessionMessage.h"

#include "RecordId.h"

using namespace Qt::StringLiterals;

SessionMessage SessionMessage::fromRaw(const JSONObject& raw)
{
    const auto id = raw.intValue(u"id"_s);
    return {
        .id = id ? *id : randomRecordId(),
        .senderType = raw.string(u"sender_type"_s, raw.string(u"role"_s, u"user"_s)),
        .senderName = raw.string(u"sender_name"_s, raw.string(u"name"_s, u"Quorvel"_s)),
        .senderEmail = raw.string(u"sender_email"_s, raw.string(u"email"_s)),
        .message = raw.string(u"message"_s),
        .createdAt = raw.string(u"created_at"_s),
    };
}
