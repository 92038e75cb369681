#include "APIClient.h"

#include "AppError.h"
#include "RecordId.h"
#include "Worker.h"

#include <QCoroFuture>
#include <QJsonDocument>
#include <QStringDecoder>
#include <QTimer>
#include <QUuid>

using namespace Qt::StringLiterals;

namespace {

/// Answers beyond this size are parsed off the main thread.
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

/// The body as text; a fixed sentence for what is no text.
QString textOf(const QByteArray& body)
{
    QStringDecoder decode(QStringDecoder::Utf8);
    const QString text = decode(body);
    return decode.hasError() ? u"We could not read the response. Please try again."_s : text;
}

QString pathOf(const QString& before, qint64 id, const QString& after = {})
{
    return before + QString::number(id) + after;
}

JSONObject wholeObject(const JSONValue& answer)
{
    const auto object = answer.object();
    if (!object)
        throw AppError(Sentence::couldNotComplete());
    return *object;
}

/// The object that an answer is about: under "data", "session" or "user", else the answer itself.
JSONObject unwrappedObject(const JSONValue& answer)
{
    const JSONObject whole = wholeObject(answer);
    for (const QString& key : {u"data"_s, u"session"_s, u"user"_s}) {
        if (const auto inner = whole.object(key))
            return *inner;
    }
    return whole;
}

/// The first id present under the keys.
std::optional<qint64> idOf(const JSONObject& raw, std::initializer_list<QString> keys)
{
    for (const QString& key : keys) {
        if (const auto id = raw.intValue(key))
            return id;
    }
    return std::nullopt;
}

qint64 idOrRandom(const JSONObject& raw, std::initializer_list<QString> keys)
{
    const auto id = idOf(raw, keys);
    return id ? *id : randomRecordId();
}

template <typename Record, typename Make>
QList<Record> mapped(const QList<JSONObject>& raws, Make make)
{
    QList<Record> records;
    records.reserve(raws.size());
    for (const JSONObject& raw : raws)
        records += make(raw);
    return records;
}

SessionSummary sessionFrom(const JSONObject& raw)
{
    return {idOrRandom(raw, {u"id"_s, u"session_id"_s}), raw};
}

/// Every file of a batch carries the batch's label and category.
FormFields uploadFields(const QString& label, const QString& category, qsizetype fileCount)
{
    const QString trimmedLabel = label.trimmed();
    const QString documentLabel = trimmedLabel.isEmpty() ? u"Desktop upload"_s : trimmedLabel;
    const QString documentCategory = category.trimmed();
    FormFields fields{
        {u"source"_s, u"macos_desktop_drag_drop"_s},
        {u"document_label"_s, documentLabel},
        {u"document_category"_s, documentCategory},
        {u"file_count"_s, QString::number(fileCount)},
    };
    for (qsizetype i = 0; i < fileCount; ++i) {
        fields += {u"file_labels[%1]"_s.arg(i), documentLabel};
        fields += {u"file_categories[%1]"_s.arg(i), documentCategory};
    }
    return fields;
}

const QString sessionsPath = u"/remote-notary/sessions/"_s;

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

Request APIClient::authorized(QByteArray method, QString path, QString idToken, const QueryItems& query) const
{
    if (!isSafeToken(idToken))
        throw AppError(Sentence::couldNotComplete());
    Request request = publicRequest(std::move(method), std::move(path), query);
    request.headers += {"Authorization", "Bearer " + idToken.toLatin1()};
    return request;
}

QCoro::Task<JSONValue> APIClient::perform(Request request, bool isPublic) const
{
    const APIClient self = *this;
    const quint64 epoch = self.backend_.epoch.current();
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

    std::optional<JSONValue> answer = JSONValue::emptyObject();
    if (response.body.size() > largeAnswer) {
        auto parsing = [body = response.body] { return JSONValue::parse(body); };
        const QFuture<std::optional<JSONValue>> parsed = onWorker(std::move(parsing));
        answer = co_await parsed;
    } else if (!response.body.isEmpty()) {
        answer = JSONValue::parse(response.body);
    }
    if (!answer)
        throw AppError(cleanServerText(textOf(response.body)));
    if (*response.status >= 200 && *response.status <= 299)
        co_return *answer;
    if (isPublic)
        throw AppError(friendlyPublicHTTPError(*response.status, *answer));
    const FriendlyError friendly = friendlyHTTPError(*response.status, *answer);
    if (friendly.announcesSessionExpiry)
        self.announceSessionExpiry(epoch);
    throw AppError(friendly.message);
}

QCoro::Task<JSONObject> APIClient::get(QString path, QString idToken) const
{
    Request request = authorized("GET", path, idToken);
    const JSONValue answer = co_await perform(std::move(request), false);
    co_return unwrappedObject(answer);
}

QCoro::Task<JSONObject> APIClient::write(
    QByteArray method, QString path, std::optional<QJsonObject> body, QString idToken) const
{
    Request request = authorized(method, path, idToken);
    if (body)
        request.body = RequestBody(compact(*body));
    const JSONValue answer = co_await perform(std::move(request), false);
    co_return unwrappedObject(answer);
}

QCoro::Task<QList<JSONObject>> APIClient::list(QString path, QString idToken, QueryItems query) const
{
    Request request = authorized("GET", path, idToken, query);
    const JSONValue answer = co_await perform(std::move(request), false);
    co_return normalizeArray(answer);
}

QCoro::Task<JSONObject> APIClient::passwordLogin(
    QString email, QString password, std::optional<AppRole> roleHint) const
{
    Request request = publicRequest("POST", u"/auth/password-login"_s);
    request.body = RequestBody(compact({
        {u"email"_s, email.trimmed()},
        {u"password"_s, password},
        {u"role_hint"_s, roleHint ? rawValue(*roleHint) : u"auto"_s},
        {u"platform"_s, u"macos_desktop"_s},
    }));
    const JSONValue answer = co_await perform(std::move(request), true);
    co_return wholeObject(answer);
}

QCoro::Task<JSONObject> APIClient::registerClient(ClientRegistration registration) const
{
    Request request = publicRequest("POST", u"/auth/client-register"_s);
    request.body = RequestBody(compact({
        {u"name"_s, registration.name.trimmed()},
        {u"full_name"_s, registration.name.trimmed()},
        {u"email"_s, registration.email.trimmed()},
        {u"password"_s, registration.password},
        {u"phone"_s, registration.phone.trimmed()},
        {u"city"_s, registration.city.trimmed()},
        {u"state"_s, registration.state.trimmed()},
        {u"auth_provider"_s, u"password"_s},
        {u"platform"_s, u"macos_desktop"_s},
    }));
    const JSONValue answer = co_await perform(std::move(request), true);
    co_return wholeObject(answer);
}

QCoro::Task<JSONObject> APIClient::getProfile(QString idToken, std::optional<AppRole> roleHint) const
{
    QueryItems query;
    if (roleHint)
        query += {u"role_hint"_s, rawValue(*roleHint)};
    Request request = authorized("GET", u"/profile"_s, idToken, query);
    const JSONValue answer = co_await perform(std::move(request), false);
    co_return wholeObject(answer);
}

QCoro::Task<JSONObject> APIClient::updateProfile(QJsonObject payload, QString idToken) const
{
    return write("POST", u"/profile"_s, payload, idToken);
}

QCoro::Task<JSONObject> APIClient::changePassword(
    QString currentPassword, QString newPassword, QString idToken) const
{
    const QJsonObject body{{u"current_password"_s, currentPassword}, {u"new_password"_s, newPassword}};
    return write("POST", u"/profile/password"_s, body, idToken);
}

QCoro::Task<QList<SessionSummary>> APIClient::getSessions(
    QString scope, QString status, QString idToken) const
{
    QueryItems query;
    if (!scope.isEmpty())
        query += {u"scope"_s, scope};
    if (!status.isEmpty())
        query += {u"status"_s, status};
    const QList<JSONObject> raws = co_await list(u"/remote-notary/sessions"_s, idToken, query);
    co_return mapped<SessionSummary>(raws, sessionFrom);
}

QCoro::Task<JSONObject> APIClient::createSession(QJsonObject payload, QString idToken) const
{
    return write("POST", u"/remote-notary/sessions"_s, payload, idToken);
}

QCoro::Task<SessionSummary> APIClient::getSession(qint64 id, QString idToken) const
{
    const JSONObject raw = co_await get(pathOf(sessionsPath, id), idToken);
    co_return sessionFrom(raw);
}

QCoro::Task<JSONObject> APIClient::cancelSession(qint64 id, QString idToken) const
{
    return write("POST", pathOf(sessionsPath, id, u"/cancel"_s), std::nullopt, idToken);
}

QCoro::Task<QList<SessionMessage>> APIClient::getSessionMessages(qint64 sessionId, QString idToken) const
{
    const QList<JSONObject> raws = co_await list(pathOf(sessionsPath, sessionId, u"/messages"_s), idToken);
    co_return mapped<SessionMessage>(raws, &SessionMessage::fromRaw);
}

QCoro::Task<JSONObject> APIClient::addSessionMessage(qint64 sessionId, QString message, QString idToken) const
{
    const QJsonObject body{{u"message"_s, message}};
    return write("POST", pathOf(sessionsPath, sessionId, u"/messages"_s), body, idToken);
}

QCoro::Task<QList<RemoteDocumentUpload>> APIClient::getSessionDocuments(
    qint64 sessionId, QString idToken) const
{
    const QList<JSONObject> raws = co_await list(pathOf(sessionsPath, sessionId, u"/documents"_s), idToken);
    co_return mapped<RemoteDocumentUpload>(raws, [](const JSONObject& raw) {
        return RemoteDocumentUpload{idOrRandom(raw, {u"id"_s, u"upload_id"_s}), raw};
    });
}

QCoro::Task<JSONObject> APIClient::uploadSessionFiles(qint64 sessionId, QString label, QString category,
    QList<MultipartFile> files, QString idToken, Request::Progress onProgress) const
{
    const QString boundary = u"Boundary-"_s + QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper();
    Request request = authorized("POST", pathOf(sessionsPath, sessionId, u"/documents"_s), idToken);
    request.headers.first().value = "multipart/form-data; boundary=" + boundary.toLatin1();
    request.body = makeMultipartBody(boundary, uploadFields(label, category, files.size()), files);
    request.onProgress = std::move(onProgress);
    const JSONValue answer = co_await perform(std::move(request), false);
    co_return unwrappedObject(answer);
}

QCoro::Task<JSONObject> APIClient::acceptOpenCall(qint64 sessionId, QString idToken) const
{
    return write("POST", pathOf(u"/notary/open-calls/"_s, sessionId, u"/accept"_s), std::nullopt, idToken);
}

QCoro::Task<JSONObject> APIClient::updateNotarySession(
    qint64 sessionId, QJsonObject data, QString idToken) const
{
    return write(
        "POST", pathOf(u"/notary/remote-notary/sessions/"_s, sessionId, u"/status"_s), data, idToken);
}

QCoro::Task<QList<JSONObject>> APIClient::getBusinessClients(QString idToken) const
{
    return list(u"/business/clients"_s, idToken);
}

QCoro::Task<QList<AdminUserRecord>> APIClient::getAdminUsers(QString idToken) const
{
    const QList<JSONObject> raws = co_await list(u"/admin/users"_s, idToken);
    co_return mapped<AdminUserRecord>(raws, [](const JSONObject& raw) {
        return AdminUserRecord{idOf(raw, {u"id"_s, u"user_id"_s}).value_or(0), raw};
    });
}

QCoro::Task<JSONObject> APIClient::saveAdminUser(qint64 id, QJsonObject data, QString idToken) const
{
    return write("POST", pathOf(u"/admin/users/"_s, id), data, idToken);
}

QCoro::Task<JSONObject> APIClient::deleteAdminUser(qint64 id, QString idToken) const
{
    return write("DELETE", pathOf(u"/admin/users/"_s, id), std::nullopt, idToken);
}

QCoro::Task<QList<AdminRecordItem>> APIClient::getAdminRecords(QString idToken) const
{
    const QList<JSONObject> raws = co_await list(u"/admin/records"_s, idToken);
    co_return mapped<AdminRecordItem>(raws, [](const JSONObject& raw) {
        return AdminRecordItem{idOrRandom(raw, {u"id"_s, u"session_id"_s, u"record_id"_s}), raw};
    });
}

QCoro::Task<JSONObject> APIClient::saveAdminRecord(
    qint64 id, QString recordType, QString source, QJsonObject data, QString idToken) const
{
    const QJsonObject body{{u"record_type"_s, recordType}, {u"source"_s, source}, {u"data"_s, data}};
    return write("POST", pathOf(u"/admin/records/"_s, id), body, idToken);
}

QCoro::Task<JSONObject> APIClient::deleteAdminRecord(
    qint64 id, QString recordType, QString source, QString idToken) const
{
    const QJsonObject body{{u"record_type"_s, recordType}, {u"source"_s, source}};
    return write("DELETE", pathOf(u"/admin/records/"_s, id), body, idToken);
}

QCoro::Task<QList<RemoteNotaryOption>> APIClient::getAdminNotaries(QString idToken) const
{
    const QList<JSONObject> raws = co_await list(u"/admin/notaries"_s, idToken);
    co_return mapped<RemoteNotaryOption>(raws, &RemoteNotaryOption::fromRaw);
}

QCoro::Task<JSONObject> APIClient::saveAdminNotary(qint64 id, QJsonObject data, QString idToken) const
{
    return write("POST", pathOf(u"/admin/notaries/"_s, id), data, idToken);
}

QCoro::Task<JSONObject> APIClient::deleteAdminNotary(qint64 id, QString idToken) const
{
    return write("DELETE", pathOf(u"/admin/notaries/"_s, id), std::nullopt, idToken);
}

QCoro::Task<JSONObject> APIClient::assignAdminSession(
    qint64 sessionId, QJsonObject data, QString idToken) const
{
    return write("POST", pathOf(u"/admin/remote-notary/sessions/"_s, sessionId, u"/assign"_s), data, idToken);
}
