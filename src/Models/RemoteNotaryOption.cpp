#include "RemoteNotaryOption.h"

using namespace Qt::StringLiterals;

RemoteNotaryOption RemoteNotaryOption::fromRaw(const JSONObject& raw)
{
    const auto id = raw.intValue(u"id"_s);
    return {
        .id = id ? *id : raw.intValue(u"notary_id"_s).value_or(0),
        .userId = raw.intValue(u"user_id"_s),
        .name = raw.string(u"name"_s, raw.string(u"full_name"_s, u"Remote Notary"_s)),
        .email = raw.string(u"email"_s),
        .phone = raw.string(u"phone"_s),
        .state = raw.string(u"notarial_state"_s, raw.string(u"state"_s)),
        .county = raw.string(u"county"_s),
        .commissionNumber = raw.string(u"commission_number"_s, raw.string(u"notary_commission_number"_s)),
        .commissionExpirationDate
        = raw.string(u"commission_expiration_date"_s, raw.string(u"commission_expires_at"_s)),
        .billingStatus = raw.string(u"billing_status"_s, raw.string(u"status"_s, u"active"_s)),
        .active = raw.boolValue(u"active"_s) || raw.boolValue(u"is_active"_s),
        .raw = raw,
    };
}

bool operator==(const RemoteNotaryOption& a, const RemoteNotaryOption& b)
{
    return a.id == b.id && a.email == b.email && a.billingStatus == b.billingStatus && a.active == b.active;
}
