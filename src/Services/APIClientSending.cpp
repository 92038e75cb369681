#include "APIClient.h"

#include "AppError.h"
#include "JSONScan.h"
#include "Worker.h"

#include <QCoroFuture>
#include <QJsonDocument>
#include <QStringDecoder>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

/// Bytes; a longer answer is read off the main thread.
constexpr qsizetype largeAnswer = 64 * 1024;

QByteArray compact(const QJsonObject& object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

/// A token becomes part of a header, so it must not be able to end one.
bool isSafeToken(const QString& token)
{
    return std::all_of(token.begin(), token.end(), [](QChar c) { return c > u' ' && c < QChar(0x7F); });
}

/// The body as text; a fixed sentence for what is no text, and for what cost too much to be read as JSON.
QString textOf(const QByteArray& body)
{
    const QString unreadable = u"We could not read the response. Please try again."_s;
    if (JSONScan(body).flaw() == JSONScan::Flaw::tooCostly)
        return unreadable;
    QStringDecoder decode(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = decode(body);
    return decode.hasError() ? unreadable : text;
}

/// What a body says: its JSON, or the sentence to show when it is none.
struct Reading
{
    std::optional<JSONValue> answer;
    QString failure;
};

Reading read(const QByteArray& body)
{
    if (body.isEmpty())
        return {JSONValue::emptyObject(), {}};
    if (const auto answer = JSONValue::parse(body))
        return {answer, {}};
    return {std::nullopt, cleanServerText(textOf(body))};
}

QFuture<Reading> readOnWorker(const QByteArray& body)
{
    return onWorker([body] { return read(body); });
}

} // namespace

void APIClient::announceSessionExpiry(quint64 epoch) const
{
    NotificationCenter& notifications = backend_.notifications;
    SignInEpoch& now = backend_.epoch;
    // Later, never inside the call; and not for somebody who has left by then.
    QTimer::singleShot(0, &notifications, [&notifications, &now, epoch] {
        if (now.current() == epoch)
            notifications.post(u"QuorvelMac.appSessionExpired"_s);
    });
}

Request APIClient::publicRequest(QByteArray method, QString path, const QueryItems& query) const
{
    Request request;
    request.method = std::move(method);
    request.url = makeURL(backend_.config.bridgeBaseURL, path, query);
    request.headers = {{"Content-Type", "application/json"}, {"Accept", "application/json"}};
    return request;
}

QCoro::Task<Request> APIClient::authorized(
    QByteArray method, QString path, QString idToken, QueryItems query) const
{
    const APIClient self = *this;
    const QString token = co_await self.backend_.tokens.pass(idToken);
    if (!isSafeToken(token))
        throw AppError(Sentence::couldNotComplete());
    Request request = self.publicRequest(method, path, query);
    request.headers += {"Authorization", "Bearer " + token.toLatin1()};
    co_return request;
}

QCoro::Task<JSONValue> APIClient::perform(Request request, bool isPublic) const
{
    const APIClient self = *this;
    const quint64 epoch = self.backend_.epoch.current();
    if (request.method == "GET")
        request.abandoned = self.abandoned_;
    Response response;
    try {
        response = co_await self.backend_.session.send(std::move(request));
    } catch (const TransportError& error) {
        const FriendlyError friendly = friendlyTransportError(error.code());
        if (friendly.announcesSessionExpiry)
            self.announceSessionExpiry(epoch);
        throw AppError(friendly.message);
    }
    if (!response.status)
        throw AppError(Sentence::couldNotComplete());

    Reading reading;
    if (response.body.size() > largeAnswer) {
        const QFuture<Reading> later = readOnWorker(response.body);
        reading = co_await later;
    } else {
        reading = read(response.body);
    }
    if (!reading.answer)
        throw AppError(reading.failure);
    if (*response.status >= 200 && *response.status <= 299)
        co_return *reading.answer;
    if (isPublic)
        throw AppError(friendlyPublicHTTPError(*response.status, *reading.answer));
    const FriendlyError friendly = friendlyHTTPError(*response.status, *reading.answer);
    if (friendly.announcesSessionExpiry)
        self.announceSessionExpiry(epoch);
    throw AppError(friendly.message);
}

QCoro::Task<JSONObject> APIClient::publicWrite(QString path, QJsonObject body) const
{
    Request request = publicRequest("POST", path);
    request.body = RequestBody(compact(body));
    const JSONValue answer = co_await perform(std::move(request), true);
    co_return wholeObject(answer);
}

QCoro::Task<JSONObject> APIClient::get(QString path, QString idToken) const
{
    const APIClient self = *this;
    Request request = co_await self.authorized("GET", path, idToken);
    const JSONValue answer = co_await self.perform(std::move(request), false);
    co_return unwrappedObject(answer);
}

QCoro::Task<JSONObject> APIClient::write(
    QByteArray method, QString path, std::optional<QJsonObject> body, QString idToken) const
{
    const APIClient self = *this;
    Request request = co_await self.authorized(method, path, idToken);
    if (body)
        request.body = RequestBody(compact(*body));
    const JSONValue answer = co_await self.perform(std::move(request), false);
    co_return unwrappedObject(answer);
}

QCoro::Task<QList<JSONObject>> APIClient::list(QString path, QString idToken, QueryItems query) const
{
    const APIClient self = *this;
    Request request = co_await self.authorized("GET", path, idToken, query);
    const JSONValue answer = co_await self.perform(std::move(request), false);
    co_return normalizeArray(answer);
}
