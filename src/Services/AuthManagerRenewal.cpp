#include "AuthManager.h"

#include "AppError.h"

#include <QPointer>

using namespace Qt::StringLiterals;

/// How a renewal has ended.
struct AuthManager::Renewal
{
    enum class End
    {
        renewed,
        refused,
        failed,
        cancelled, ///< the program ends
    };
    End end = End::failed;
    JSONObject answer; ///< of a renewal that brought one
    QString obstacle; ///< the sentence for requests that cannot go out for the same reason
};

QCoro::Task<> AuthManager::refreshTokenIfNeeded()
{
    return renew(Manner::strict);
}

QCoro::Task<> AuthManager::renew(Manner manner)
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
    backend_.tokens.close();
    const Renewal renewal = co_await refreshFirebaseToken(renewing->refreshToken, *key);
    // Whoever has left meanwhile has opened the gate for the next person.
    if (!self || backend_.epoch.current() != epoch)
        co_return;
    renewingEpoch_.reset();
    finishRenewal(renewal, manner);
}

void AuthManager::finishRenewal(const Renewal& renewal, Manner manner)
{
    switch (renewal.end) {
    case Renewal::End::renewed:
        storeRenewed(renewal.answer);
        backend_.tokens.open();
        return;
    case Renewal::End::cancelled:
        // No reason to forget the user.
        backend_.tokens.open(renewal.obstacle);
        return;
    case Renewal::End::failed:
        if (manner == Manner::strict)
            break;
        schedule_.postpone();
        // A token that is good no more would only end the session.
        backend_.tokens.open(schedule_.hasTokenEnded() ? renewal.obstacle : QString());
        return;
    case Renewal::End::refused:
        break;
    }
    signOut();
}

void AuthManager::storeRenewed(const JSONObject& answer)
{
    AuthUser renewed = *user.value();
    const QString before = renewed.idToken;
    renewed.localId = answer.string(u"user_id"_s, renewed.localId);
    renewed.idToken = answer.string(u"id_token"_s, renewed.idToken);
    renewed.refreshToken = answer.string(u"refresh_token"_s, renewed.refreshToken);
    backend_.tokens.replace(before, renewed.idToken);
    schedule_.begin(tokenLifetime(answer));
    store(renewed);
}

/// Encodes more than a query strictly needs; it decodes to the same text, and no character of a token can
/// then end its field.
static QByteArray formField(const QByteArray& name, const QString& value)
{
    return name + '=' + QUrl::toPercentEncoding(value);
}

/// Whether the token service has looked at the token and does not accept it, rather than being busy or
/// broken.
static bool isRefusal(int status)
{
    constexpr int timedOut = 408;
    constexpr int tooMany = 429;
    return status >= 400 && status <= 499 && status != timedOut && status != tooMany;
}

QCoro::Task<AuthManager::Renewal> AuthManager::refreshFirebaseToken(QString refreshToken, QString key)
{
    Renewal renewal;
    renewal.obstacle = Sentence::couldNotComplete();
    try {
        Request request;
        request.method = "POST";
        request.url = makeURL(backend_.config.secureTokenURL, u"/v1/token"_s, {{u"key"_s, key}});
        request.headers = {{"Content-Type", "application/x-www-form-urlencoded"}};
        request.body = RequestBody(
            formField("grant_type", u"refresh_token"_s) + '&' + formField("refresh_token", refreshToken));
        const Response response = co_await backend_.session.send(std::move(request));
        const int status = response.status.value_or(0);
        const std::optional<JSONValue> answer = JSONValue::parse(response.body);
        const std::optional<JSONObject> object = answer ? answer->object() : std::nullopt;
        if (isRefusal(status))
            renewal.end = Renewal::End::refused;
        else if (status >= 200 && status <= 299 && object)
            renewal = {Renewal::End::renewed, *object, {}};
    } catch (const TransportError& error) {
        if (error.code() == TransportError::Code::Cancelled)
            renewal.end = Renewal::End::cancelled;
        renewal.obstacle = friendlyTransportError(error.code()).message;
    } catch (const AppError&) {
        // There is no such address; the sentence for it is there already.
    }
    co_return renewal;
}
