#include "APIClient.h"

#include "RecordId.h"
#include "Worker.h"

#include <QCoroFuture>
#include <QUuid>

using namespace Qt::StringLiterals;

namespace {

QString pathOf(const QString& before, qint64 id, const QString& after = {})
{
    return before + QString::number(id) + after;
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

/// So many records are made within a frame; more are made off the main thread.
constexpr qsizetype fewRecords = 500;

template <typename Record>
QList<Record> mapped(const QList<JSONObject>& raws, Record (*make)(const JSONObject&))
{
    QList<Record> records;
    records.reserve(raws.size());
    for (const JSONObject& raw : raws)
        records += make(raw);
    return records;
}

template <typename Record>
QCoro::Task<QList<Record>> recordsOf(QList<JSONObject> raws, Record (*make)(const JSONObject&))
{
    if (raws.size() <= fewRecords)
        co_return mapped(raws, make);
    auto making = [raws = std::move(raws), make] { return mapped(raws, make); };
    const QFuture<QList<Record>> made = onWorker(std::move(making));
    co_return co_await made;
}

SessionSummary sessionFrom(const JSONObject& raw)
{
    return {idOrRandom(raw, {u"id"_s, u"session_id"_s}), raw};
}

RemoteDocumentUpload documentFrom(const JSONObject& raw)
{
    return {idOrRandom(raw, {u"id"_s, u"upload_id"_s}), raw};
}

AdminUserRecord adminUserFrom(const JSONObject& raw)
{
    return {idOf(raw, {u"id"_s, u"user_id"_s}).value_or(0), raw};
}

AdminRecordItem adminRecordFrom(const JSONObject& raw)
{
    return {idOrRandom(raw, {u"id"_s, u"session_id"_s, u"record_id"_s}), raw};
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

QCoro::Task<JSONObject> APIClient::passwordLogin(
    QString email, QString password, std::optional<AppRole> roleHint) const
{
    const QJsonObject body{
        {u"email"_s, email.trimmed()},
        {u"password"_s, password},
        {u"role_hint"_s, roleHint ? rawValue(*roleHint) : u"auto"_s},
        {u"platform"_s, u"macos_desktop"_s},
    };
    return publicWrite(u"/auth/password-login"_s, body);
}

QCoro::Task<JSONObject> APIClient::registerClient(ClientRegistration registration) const
{
    const QJsonObject body{
        {u"name"_s, registration.name.trimmed()},
        {u"full_name"_s, registration.name.trimmed()},
        {u"email"_s, registration.email.trimmed()},
        {u"password"_s, registration.password},
        {u"phone"_s, registration.phone.trimmed()},
        {u"city"_s, registration.city.trimmed()},
        {u"state"_s, registration.state.trimmed()},
        {u"auth_provider"_s, u"password"_s},
        {u"platform"_s, u"macos_desktop"_s},
    };
    return publicWrite(u"/auth/client-register"_s, body);
}

QCoro::Task<JSONObject> APIClient::getProfile(QString idToken, std::optional<AppRole> roleHint) const
{
    QueryItems query;
    if (roleHint)
        query += {u"role_hint"_s, rawValue(*roleHint)};
    const APIClient self = *this;
    Request request = co_await self.authorized("GET", u"/profile"_s, idToken, query);
    const JSONValue answer = co_await self.perform(std::move(request), false);
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
    QList<JSONObject> raws = co_await list(u"/remote-notary/sessions"_s, idToken, query);
    co_return co_await recordsOf(std::move(raws), sessionFrom);
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
    QList<JSONObject> raws = co_await list(pathOf(sessionsPath, sessionId, u"/messages"_s), idToken);
    co_return co_await recordsOf(std::move(raws), SessionMessage::fromRaw);
}

QCoro::Task<JSONObject> APIClient::addSessionMessage(qint64 sessionId, QString message, QString idToken) const
{
    const QJsonObject body{{u"message"_s, message}};
    return write("POST", pathOf(sessionsPath, sessionId, u"/messages"_s), body, idToken);
}

QCoro::Task<QList<RemoteDocumentUpload>> APIClient::getSessionDocuments(
    qint64 sessionId, QString idToken) const
{
    QList<JSONObject> raws = co_await list(pathOf(sessionsPath, sessionId, u"/documents"_s), idToken);
    co_return co_await recordsOf(std::move(raws), documentFrom);
}

QCoro::Task<JSONObject> APIClient::uploadSessionFiles(qint64 sessionId, QString label, QString category,
    QList<MultipartFile> files, QString idToken, Request::Progress onProgress) const
{
    const QString boundary = u"Boundary-"_s + QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper();
    const APIClient self = *this;
    const QString path = pathOf(sessionsPath, sessionId, u"/documents"_s);
    Request request = co_await self.authorized("POST", path, idToken);
    request.headers.first().value = "multipart/form-data; boundary=" + boundary.toLatin1();
    request.body = makeMultipartBody(boundary, uploadFields(label, category, files.size()), files);
    request.onProgress = std::move(onProgress);
    const JSONValue answer = co_await self.perform(std::move(request), false);
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
    QList<JSONObject> raws = co_await list(u"/admin/users"_s, idToken);
    co_return co_await recordsOf(std::move(raws), adminUserFrom);
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
    QList<JSONObject> raws = co_await list(u"/admin/records"_s, idToken);
    co_return co_await recordsOf(std::move(raws), adminRecordFrom);
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
    QList<JSONObject> raws = co_await list(u"/admin/notaries"_s, idToken);
    co_return co_await recordsOf(std::move(raws), RemoteNotaryOption::fromRaw);
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
