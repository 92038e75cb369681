#pragma once

#include "JSONObject.h"
#include "WebSession.h"

#include <QUrl>
#include <utility>

using QueryItems = QList<std::pair<QString, QString>>;

/// The base address, one slash, and the path, with the query when there is one. Names and values are percent
/// encoded here, so they are passed raw.
/// \throws AppError when the result is no address.
QUrl makeURL(const QUrl& base, const QString& path, const QueryItems& query = {});

/// The records of an answer: the answer itself when it is a list of objects, else the first such list under a
/// known key; an empty list when there is none.
QList<JSONObject> normalizeArray(const JSONValue& answer);

/// The answer as the one object that it has to be. \throws AppError when it is none.
JSONObject wholeObject(const JSONValue& answer);
/// The object that an answer is about: the one under "data", "session" or "user", else the answer itself.
/// \throws AppError when the answer is no object.
JSONObject unwrappedObject(const JSONValue& answer);

/// The server's own message in an answer, when it has one.
std::optional<QString> parseServerMessage(const JSONValue& answer);
/// Server text made fit to show: no HTML, no talk of tokens, never empty, never endless.
QString cleanServerText(const QString& text);

/// A failure worded for the user, and whether it ends the session everywhere.
struct FriendlyError
{
    QString message;
    bool announcesSessionExpiry = false;
};
FriendlyError friendlyHTTPError(int statusCode, const JSONValue& answer);
/// The wording for sign-in and registration; it never ends a session.
QString friendlyPublicHTTPError(int statusCode, const JSONValue& answer);
FriendlyError friendlyTransportError(TransportError::Code code);
