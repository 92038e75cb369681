#pragma once

#include "AdminRecordItem.h"
#include "AdminUserRecord.h"
#include "AppConfig.h"
#include "AppRole.h"
#include "Multipart.h"
#include "NotificationCenter.h"
#include "RemoteDocumentUpload.h"
#include "RemoteNotaryOption.h"
#include "RequestPipeline.h"
#include "SessionMessage.h"
#include "SessionSummary.h"
#include "SignInEpoch.h"
#include "TokenGate.h"
#include "WebSession.h"

#include <QCoroTask>
#include <QJsonObject>

/// What every call to the bridge needs. All of it outlives the clients made from it.
struct Backend
{
    WebSession& session;
    NotificationCenter& notifications;
    SignInEpoch& epoch;
    const AppConfig& config;
    TokenGate& tokens;
};

/// What a registration tells the bridge, as typed.
struct ClientRegistration
{
    QString name;
    QString email;
    QString password;
    QString phone;
    QString city;
    QString state;
};

/// The bridge's operations, one function each: typed in, typed out. A value without state of its own; make
/// one wherever it is needed. Every operation throws AppError, and nothing else, with a sentence fit to show.
///
/// While the ID token is being renewed a request waits, and goes out with the new one (TokenGate).
///
/// Its reads end when nobody waits for them any more, where it was told how to know.
///
/// A failure that ends the session is announced as "QuorvelMac.appSessionExpired", later and on the main
/// thread, unless the user for whom the request was made has left by then.
class APIClient
{
public:
    explicit APIClient(const Backend& backend) : backend_(backend) { }
    /// \param abandoned  finishes when nobody waits any more for what is read; what is written goes on
    APIClient(const Backend& backend, QFuture<void> abandoned)
        : backend_(backend), abandoned_(std::move(abandoned))
    { }

    // Accounts
    QCoro::Task<JSONObject> passwordLogin(
        QString email, QString password, std::optional<AppRole> roleHint) const;
    QCoro::Task<JSONObject> registerClient(ClientRegistration registration) const;
    QCoro::Task<JSONObject> getProfile(QString idToken, std::optional<AppRole> roleHint) const;
    QCoro::Task<JSONObject> updateProfile(QJsonObject payload, QString idToken) const;
    QCoro::Task<JSONObject> changePassword(
        QString currentPassword, QString newPassword, QString idToken) const;

    // Sessions
    /// \param scope  "business", "notary_assigned", "notary_open" or "admin_all"; empty for the user's own
    /// \param status empty for all
    QCoro::Task<QList<SessionSummary>> getSessions(QString scope, QString status, QString idToken) const;
    QCoro::Task<JSONObject> createSession(QJsonObject payload, QString idToken) const;
    QCoro::Task<SessionSummary> getSession(qint64 id, QString idToken) const;
    QCoro::Task<JSONObject> cancelSession(qint64 id, QString idToken) const;
    QCoro::Task<QList<SessionMessage>> getSessionMessages(qint64 sessionId, QString idToken) const;
    QCoro::Task<JSONObject> addSessionMessage(qint64 sessionId, QString message, QString idToken) const;
    QCoro::Task<QList<RemoteDocumentUpload>> getSessionDocuments(qint64 sessionId, QString idToken) const;
    /// All files travel in one request and carry the same label and category.
    QCoro::Task<JSONObject> uploadSessionFiles(qint64 sessionId, QString label, QString category,
        QList<MultipartFile> files, QString idToken, Request::Progress onProgress) const;

    // Notaries and businesses
    QCoro::Task<JSONObject> acceptOpenCall(qint64 sessionId, QString idToken) const;
    QCoro::Task<JSONObject> updateNotarySession(qint64 sessionId, QJsonObject data, QString idToken) const;
    QCoro::Task<QList<JSONObject>> getBusinessClients(QString idToken) const;

    // Administration
    QCoro::Task<QList<AdminUserRecord>> getAdminUsers(QString idToken) const;
    QCoro::Task<JSONObject> saveAdminUser(qint64 id, QJsonObject data, QString idToken) const;
    QCoro::Task<JSONObject> deleteAdminUser(qint64 id, QString idToken) const;
    QCoro::Task<QList<AdminRecordItem>> getAdminRecords(QString idToken) const;
    QCoro::Task<JSONObject> saveAdminRecord(
        qint64 id, QString recordType, QString source, QJsonObject data, QString idToken) const;
    QCoro::Task<JSONObject> deleteAdminRecord(
        qint64 id, QString recordType, QString source, QString idToken) const;
    QCoro::Task<QList<RemoteNotaryOption>> getAdminNotaries(QString idToken) const;
    QCoro::Task<JSONObject> saveAdminNotary(qint64 id, QJsonObject data, QString idToken) const;
    QCoro::Task<JSONObject> deleteAdminNotary(qint64 id, QString idToken) const;
    QCoro::Task<JSONObject> assignAdminSession(qint64 sessionId, QJsonObject data, QString idToken) const;

    /// Sends a prepared request and reads its answer, turning every failure into an AppError.
    /// \param isPublic  words failures for somebody who is signing in
    QCoro::Task<JSONValue> perform(Request request, bool isPublic) const;

private:
    QCoro::Task<JSONObject> publicWrite(QString path, QJsonObject body) const;
    QCoro::Task<JSONObject> get(QString path, QString idToken) const;
    QCoro::Task<JSONObject> write(
        QByteArray method, QString path, std::optional<QJsonObject> body, QString idToken) const;
    QCoro::Task<QList<JSONObject>> list(QString path, QString idToken, QueryItems query) const;
    QCoro::Task<QList<JSONObject>> list(QString path, QString idToken) const
    {
        return list(path, idToken, {});
    }
    Request publicRequest(QByteArray method, QString path, const QueryItems& query = {}) const;
    QCoro::Task<Request> authorized(QByteArray method, QString path, QString idToken, QueryItems query) const;
    QCoro::Task<Request> authorized(QByteArray method, QString path, QString idToken) const
    {
        return authorized(std::move(method), std::move(path), std::move(idToken), {});
    }
    void announceSessionExpiry(quint64 epoch) const;

    Backend backend_;
    std::optional<QFuture<void>> abandoned_;
};
