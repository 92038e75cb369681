#include "AuthUser.h"

#include "JSONFields.h"

#include <QJsonDocument>

using namespace Qt::StringLiterals;

namespace {

template <typename Value>
void insert(QJsonObject& object, const QString& key, const std::optional<Value>& value)
{
    if (value)
        object.insert(key, *value);
}

} // namespace

QByteArray AuthUser::encoded() const
{
    QJsonObject object{
        {u"localId"_s, localId},
        {u"email"_s, email},
        {u"idToken"_s, idToken},
        {u"refreshToken"_s, refreshToken},
    };
    insert(object, u"displayName"_s, displayName);
    insert(object, u"sqlUserId"_s, sqlUserId);
    insert(object, u"role"_s, role);
    insert(object, u"isAdmin"_s, isAdmin);
    insert(object, u"isNotary"_s, isNotary);
    insert(object, u"isBusiness"_s, isBusiness);
    insert(object, u"notaryId"_s, notaryId);
    insert(object, u"businessId"_s, businessId);
    insert(object, u"businessName"_s, businessName);
    insert(object, u"state"_s, state);
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

std::optional<AuthUser> AuthUser::decode(const QByteArray& json)
{
    JSONFields fields(json);
    AuthUser user{
        .localId = fields.required<QString>(u"localId"_s),
        .email = fields.required<QString>(u"email"_s),
        .displayName = fields.optional<QString>(u"displayName"_s),
        .idToken = fields.required<QString>(u"idToken"_s),
        .refreshToken = fields.required<QString>(u"refreshToken"_s),
        .sqlUserId = fields.optional<qint64>(u"sqlUserId"_s),
        .role = fields.optional<QString>(u"role"_s),
        .isAdmin = fields.optional<bool>(u"isAdmin"_s),
        .isNotary = fields.optional<bool>(u"isNotary"_s),
        .isBusiness = fields.optional<bool>(u"isBusiness"_s),
        .notaryId = fields.optional<qint64>(u"notaryId"_s),
        .businessId = fields.optional<qint64>(u"businessId"_s),
        .businessName = fields.optional<QString>(u"businessName"_s),
        .state = fields.optional<QString>(u"state"_s),
    };
    return fields.areSound() ? std::optional(user) : std::nullopt;
}
