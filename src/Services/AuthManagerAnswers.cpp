#include "AuthManager.h"

#include "AppError.h"

using namespace Qt::StringLiterals;

namespace {

/// The text under the first of the keys that holds one.
QString firstOf(const JSONObject& object, std::initializer_list<QString> keys, const QString& fallback = {})
{
    for (const QString& key : keys) {
        if (const QString text = object.string(key); !text.isEmpty())
            return text;
    }
    return fallback;
}

/// The first present of the integers, each from its own object.
std::optional<qint64> firstInt(std::initializer_list<std::pair<const JSONObject*, QString>> places)
{
    for (const auto& [object, key] : places) {
        if (const std::optional<qint64> number = object->intValue(key))
            return number;
    }
    return std::nullopt;
}

} // namespace

AuthUser AuthManager::authUserFromBridgeResponse(const JSONObject& response, const QString& emailFallback)
{
    const JSONObject firebase = response.object(u"firebase"_s).value_or(response);
    AuthUser user;
    user.idToken = firstOf(firebase, {u"idToken"_s, u"id_token"_s});
    user.refreshToken = firstOf(firebase, {u"refreshToken"_s, u"refresh_token"_s});
    if (user.idToken.isEmpty() || user.refreshToken.isEmpty()) {
        throw AppError(response.string(
            u"message"_s, u"Sign-in could not be completed. Please try again or contact support."_s));
    }
    const JSONObject profile = profileFromBridgeResponse(response);
    const JSONObject person = profile.object(u"user"_s).value_or(profile);
    user.localId = firstOf(firebase, {u"localId"_s, u"local_id"_s, u"user_id"_s});
    user.email = firstOf(firebase, {u"email"_s}, person.string(u"email"_s, emailFallback));
    user.displayName = firstOf(firebase, {u"displayName"_s}, firstOf(person, {u"full_name"_s, u"name"_s}));
    return user;
}

JSONObject AuthManager::profileFromBridgeResponse(const JSONObject& response)
{
    if (const std::optional<JSONObject> profile = response.object(u"profile"_s))
        return *profile;
    JSONObject gathered;
    for (const QString& key : {u"user"_s, u"notary"_s, u"business"_s}) {
        if (response.object(key))
            gathered = gathered.with(key, response.value(key));
    }
    for (const QString& key :
        {u"app_role"_s, u"is_admin"_s, u"is_notary"_s, u"is_business"_s, u"notary_id"_s, u"business_id"_s}) {
        if (!response.value(key).isNull())
            gathered = gathered.with(key, response.value(key));
    }
    return gathered.isEmpty() ? response : gathered;
}

AuthUser AuthManager::merge(AuthUser user, const JSONObject& profile)
{
    const JSONObject person = profile.object(u"user"_s).value_or(profile);
    const JSONObject notary = profile.object(u"notary"_s).value_or(JSONObject());
    const std::optional<JSONObject> business = profile.object(u"business"_s);
    const JSONObject company = business.value_or(JSONObject());

    user.sqlUserId = firstInt({{&person, u"id"_s}, {&person, u"user_id"_s}, {&profile, u"user_id"_s}});
    user.displayName = firstOf(person, {u"full_name"_s, u"name"_s}, user.displayName.value_or(QString()));
    user.email = person.string(u"email"_s, user.email);
    user.role = profile.string(u"app_role"_s, person.string(u"role"_s, user.role.value_or(u"client"_s)));
    user.isAdmin = profile.boolValue(u"is_admin"_s);
    user.isNotary = profile.boolValue(u"is_notary"_s);
    user.isBusiness = profile.boolValue(u"is_business"_s) || person.boolValue(u"is_business_account"_s);
    user.notaryId = firstInt({{&profile, u"notary_id"_s}, {&notary, u"id"_s}});
    user.businessId = firstInt({{&profile, u"business_id"_s}, {&company, u"id"_s}});
    const QString ownName = person.string(u"business_name"_s);
    user.businessName = business ? company.string(u"company_name"_s, ownName) : ownName;
    user.state = person.string(u"state"_s);
    return user;
}

std::chrono::seconds AuthManager::tokenLifetime(const JSONObject& answer)
{
    constexpr qint64 longest = 365 * 24 * 3600;
    const qint64 told
        = answer.intValue(u"expires_in"_s).value_or(answer.intValue(u"expiresIn"_s).value_or(0));
    const bool isUsable = told > 0 && told <= longest;
    return isUsable ? std::chrono::seconds(told) : RenewalSchedule::usualLifetime;
}
