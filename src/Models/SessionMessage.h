#pragma once

#include "JSONObject.h"

/// One message in a session's thread.
struct SessionMessage
{
    qint64 id = 0; ///< random when the answer had none
    QString senderType;
    QString senderName;
    QString senderEmail;
    QString message;
    QString createdAt; ///< the server's text

    static SessionMessage fromRaw(const JSONObject& raw);

    bool operator==(const SessionMessage&) const = default;
};
