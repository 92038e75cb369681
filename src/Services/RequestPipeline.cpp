#include "RequestPipeline.h"

#include "AppError.h"

#include <QUrlQuery>

using namespace Qt::StringLiterals;

static QStringView withoutOuterSlashes(QStringView text)
{
    while (text.startsWith(u'/'))
        text = text.sliced(1);
    while (text.endsWith(u'/'))
        text.chop(1);
    return text;
}

/// Percent-encodes everything that could mean something in a query, so that every text arrives as it is.
static QString encoded(const QString& text)
{
    return QString::fromLatin1(QUrl::toPercentEncoding(text));
}

QUrl makeURL(const QUrl& base, const QString& path, const QueryItems& query)
{
    const QString start = base.toString(QUrl::FullyEncoded);
    const QString joined
        = withoutOuterSlashes(start).toString() + u'/' + withoutOuterSlashes(path).toString();
    QUrl url(joined, QUrl::StrictMode);
    if (!url.isValid() || url.host().isEmpty())
        throw AppError(Sentence::couldNotComplete());
    if (!query.isEmpty()) {
        QStringList items;
        for (const auto& [name, value] : query)
            items += encoded(name) + u'=' + encoded(value);
        url.setQuery(items.join(u'&'), QUrl::StrictMode);
    }
    return url;
}

QList<JSONObject> normalizeArray(const JSONValue& answer)
{
    if (const auto records = answer.objects())
        return *records;
    const auto object = answer.object();
    if (!object)
        return {};
    for (const QString& key : {u"data"_s, u"sessions"_s, u"messages"_s, u"documents"_s, u"uploads"_s,
             u"records"_s, u"users"_s, u"notaries"_s, u"clients"_s, u"assignments"_s, u"open_calls"_s}) {
        if (const auto records = object->value(key).objects())
            return *records;
    }
    return {};
}

JSONObject wholeObject(const JSONValue& answer)
{
    const auto object = answer.object();
    if (!object)
        throw AppError(Sentence::couldNotComplete());
    return *object;
}

JSONObject unwrappedObject(const JSONValue& answer)
{
    const JSONObject whole = wholeObject(answer);
    for (const QString& key : {u"data"_s, u"session"_s, u"user"_s}) {
        if (const auto inner = whole.object(key))
            return *inner;
    }
    return whole;
}

std::optional<QString> parseServerMessage(const JSONValue& answer)
{
    const auto object = answer.object();
    if (!object)
        return std::nullopt;
    for (const QString& key : {u"message"_s, u"error"_s}) {
        if (const JSONValue value = object->value(key); value.isString())
            return value.string();
    }
    if (const QString code = object->value(u"code"_s).string(); !code.isEmpty())
        return code;
    const auto errors = object->object(u"errors"_s);
    if (!errors)
        return std::nullopt;
    QStringList messages;
    for (const QString& key : errors->keys())
        messages += errors->value(key).rendered();
    return messages.join(u'\n');
}

namespace {

bool holdsAny(const QString& text, std::initializer_list<QLatin1StringView> words)
{
    return std::any_of(
        words.begin(), words.end(), [&text](QLatin1StringView word) { return text.contains(word); });
}

QString serverMessage(const JSONValue& answer)
{
    return parseServerMessage(answer).value_or(Sentence::couldNotComplete());
}

QString noAccess()
{
    return u"You do not have access to that section."_s;
}

} // namespace

/// Characters; far more than any alert shows, and few enough to hand to every part of the desktop.
static constexpr qsizetype longestSentence = 256 * 1024;

QString cleanServerText(const QString& text)
{
    const QString trimmed = text.trimmed();
    const QString lowered = trimmed.toLower();
    if (holdsAny(lowered, {"firebase"_L1, "token"_L1, "jwt"_L1, "bearer"_L1}))
        return Sentence::sessionEnded();
    if (holdsAny(lowered, {"html"_L1, "<br"_L1, "fatal error"_L1}))
        return u"We could not complete that request. Please try again or contact support."_s;
    return trimmed.isEmpty() ? Sentence::couldNotComplete() : trimmed.left(longestSentence);
}

FriendlyError friendlyHTTPError(int statusCode, const JSONValue& answer)
{
    const QString message = serverMessage(answer);
    const QString lowered = message.toLower();
    // "session" is deliberately broad: any refusal that speaks of one signs the user out.
    if (statusCode == 401
        || holdsAny(lowered,
            {"invalid_firebase_token"_L1, "firebase token"_L1, "jwt"_L1, "authorization"_L1, "bearer"_L1,
                "session"_L1}))
        return {Sentence::sessionEnded(), true};
    if (statusCode == 403)
        return {noAccess()};
    // These words alone only word the failure; they announce nothing.
    if (holdsAny(lowered, {"firebase"_L1, "token"_L1}))
        return {Sentence::sessionEnded()};
    return {cleanServerText(message)};
}

QString friendlyPublicHTTPError(int statusCode, const JSONValue& answer)
{
    const QString message = serverMessage(answer);
    const QString lowered = message.toLower();
    if (statusCode == 401
        || holdsAny(lowered, {"invalid_login_credentials"_L1, "invalid_password"_L1, "email_not_found"_L1}))
        return u"Incorrect email or password. Please try again."_s;
    if (holdsAny(lowered, {"firebase"_L1, "token"_L1}))
        return u"The secure login service had a problem. Please try again."_s;
    if (statusCode == 403)
        return noAccess();
    return cleanServerText(message);
}

FriendlyError friendlyTransportError(TransportError::Code code)
{
    switch (code) {
    case TransportError::Code::UserAuthenticationRequired:
    case TransportError::Code::UserCancelledAuthentication:
        return {Sentence::sessionEnded(), true};
    case TransportError::Code::NotConnectedToInternet:
    case TransportError::Code::NetworkConnectionLost:
    case TransportError::Code::TimedOut:
    case TransportError::Code::CannotFindHost:
    case TransportError::Code::CannotConnectToHost:
    case TransportError::Code::DnsLookupFailed:
        return {u"Connection problem. Please check your internet connection and try again."_s};
    case TransportError::Code::CannotReadFile:
        return {u"One of the attached files could not be read. It may have been moved or deleted."_s};
    case TransportError::Code::SecureConnectionFailed:
    case TransportError::Code::BadServerResponse:
    case TransportError::Code::BadURL:
    case TransportError::Code::UnsupportedURL:
    case TransportError::Code::Cancelled:
    case TransportError::Code::Unknown:
        break;
    }
    return {u"Connection problem. Please try again."_s};
}
