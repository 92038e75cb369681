#include "AuthManager.h"

#include "AppError.h"

#include <QPointer>
#include <QScopeGuard>

using namespace Qt::StringLiterals;

QCoro::Task<> AuthManager::refreshTokenIfNeeded()
{
    const QPointer<AuthManager> self(this);
    const std::optional<AuthUser> renewing = user.value();
    const quint64 epoch = backend_.epoch.current();
    // A refresh token is good for one use: two renewals at once would end the session.
    if (renewingEpoch_ == epoch || !renewing || renewing->refreshToken.isEmpty())
        co_return;
    const std::optional<QString> key = backend_.config.plistValue(u"API_KEY"_s);
    if (!key)
        co_return;
    renewingEpoch_ = epoch;
    const auto done = qScopeGuard([self, epoch] {
        if (self && self->renewingEpoch_ == epoch)
            self->renewingEpoch_.reset();
    });
    std::optional<JSONObject> answer;
    try {
        answer = co_await refreshFirebaseToken(renewing->refreshToken, *key);
    } catch (const TransportError& error) {
        // Cancelled means that the program ends, which is no reason to forget the user.
        if (error.code() == TransportError::Code::Cancelled)
            co_return;
    } catch (const std::exception&) {
        // Whatever the reason, this user's session cannot go on.
    }
    if (!self || backend_.epoch.current() != epoch)
        co_return;
    if (answer)
        storeRenewed(*answer);
    else
        signOut();
}

void AuthManager::storeRenewed(const JSONObject& answer)
{
    AuthUser renewed = *user.value();
    renewed.localId = answer.string(u"user_id"_s, renewed.localId);
    renewed.idToken = answer.string(u"id_token"_s, renewed.idToken);
    renewed.refreshToken = answer.string(u"refresh_token"_s, renewed.refreshToken);
    store(renewed);
}

/// Encodes more than a query strictly needs; it decodes to the same text, and no character of a token can
/// then end its field.
static QByteArray formField(const QByteArray& name, const QString& value)
{
    return name + '=' + QUrl::toPercentEncoding(value);
}

QCoro::Task<JSONObject> AuthManager::refreshFirebaseToken(QString refreshToken, QString key)
{
    Request request;
    request.method = "POST";
    request.url = makeURL(backend_.config.secureTokenURL, u"/v1/token"_s, {{u"key"_s, key}});
    request.headers = {{"Content-Type", "application/x-www-form-urlencoded"}};
    request.body = RequestBody(
        formField("grant_type", u"refresh_token"_s) + '&' + formField("refresh_token", refreshToken));
    const Response response = co_await backend_.session.send(std::move(request));
    if (!response.status)
        throw AppError(Sentence::couldNotComplete());
    if (*response.status < 200 || *response.status > 299)
        throw AppError(Sentence::sessionEnded());
    const std::optional<JSONValue> answer = JSONValue::parse(response.body);
    const std::optional<JSONObject> object = answer ? answer->object() : std::nullopt;
    if (!object)
        throw AppError(Sentence::couldNotComplete());
    co_return *object;
}
