#include "Answers/AccountAnswers.h"

#include "Answers/Loose.h"

namespace bridge {

using Json = nlohmann::json;

static Json person(const Account& account)
{
    const Variant variant = variantOf(account.id);
    Json answer{{"id", looseNumber(variant, account.id)}, {"email", account.email},
        {"phone", looseText(variant, account.phone)}, {"city", looseText(variant, account.city)},
        {"state", looseText(variant, account.state)}};
    answer[variant == Variant::Aliases ? "name" : "full_name"] = account.fullName;
    if (account.isBusiness())
        answer["business_name"] = account.businessName;
    return answer;
}

static void addRoles(Json& answer, const Account& account)
{
    const Variant variant = variantOf(account.id);
    answer["app_role"] = account.roleWord;
    answer["is_admin"] = looseFlag(variant, account.isAdmin());
    answer["is_notary"] = account.isNotary() ? Json(1) : Json(0);
    answer["is_business"] = looseFlag(variant, account.isBusiness());
    // Told once: either flat or inside the profile that it is the id of.
    answer["notary_id"] = variant == Variant::Texts ? Json("NULL") : looseId(variant, account.notaryId);
    answer["business_id"] = variant == Variant::Texts ? Json() : looseId(variant, account.businessId);
    if (account.isNotary())
        answer["notary"] = {{"id", looseNumber(variant, account.notaryId)}};
    if (account.isBusiness())
        answer["business"]
            = {{"id", looseNumber(variant, account.businessId)}, {"company_name", account.businessName}};
}

Json signInAnswer(const Account& account, const Tokens& tokens)
{
    Json answer{
        {"firebase",
            {{"idToken", tokens.idToken}, {"refreshToken", tokens.refreshToken}, {"localId", account.localId},
                {"email", account.email}, {"displayName", account.fullName},
                {"expiresIn", std::to_string(tokens.lifetime.count())}}},
        {"user", person(account)}};
    addRoles(answer, account);
    return answer;
}

Json registrationAnswer(const Account& account, const Tokens& tokens)
{
    Json profile = person(account);
    profile.erase("id");
    profile["user_id"] = account.id;
    addRoles(profile, account);
    return {{"id_token", tokens.idToken}, {"refresh_token", tokens.refreshToken},
        {"local_id", account.localId}, {"expires_in", std::to_string(tokens.lifetime.count())},
        {"profile", profile}};
}

Json profileAnswer(const Account& account)
{
    Json answer = account.id % 2 == 1 ? person(account) : Json{{"user", person(account)}};
    addRoles(answer, account);
    return answer;
}

Json renewalAnswer(const Account& account, const Tokens& tokens)
{
    return {{"user_id", account.localId}, {"id_token", tokens.idToken}, {"access_token", tokens.idToken},
        {"refresh_token", tokens.refreshToken}, {"token_type", "Bearer"},
        {"expires_in", std::to_string(tokens.lifetime.count())}};
}

Json userAnswer(const Account& account)
{
    const Variant variant = variantOf(account.id);
    const bool isAliased = variant == Variant::Aliases;
    Json answer{{"email", account.email}, {"phone", looseText(variant, account.phone)},
        {"city", looseText(variant, account.city)}, {"state", looseText(variant, account.state)},
        {isAliased ? "app_role" : "role", account.roleWord}};
    answer[variant == Variant::Texts ? "user_id" : "id"] = looseNumber(variant, account.id);
    answer[isAliased ? "display_name" : variant == Variant::Texts ? "name" : "full_name"] = account.fullName;
    return answer;
}

} // namespace bridge
