#include "SignerDraft.h"

#include "JSONFields.h"

#include <QJsonDocument>

using namespace Qt::StringLiterals;

QByteArray SignerDraft::encoded() const
{
    const QJsonObject object{
        {u"id"_s, id.toString(QUuid::WithoutBraces)},
        {u"name"_s, name},
        {u"email"_s, email},
        {u"phone"_s, phone},
        {u"idType"_s, idType},
        {u"idExpirationDate"_s, idExpirationDate.toUTC().toString(Qt::ISODateWithMs)},
    };
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

std::optional<SignerDraft> SignerDraft::decode(const QByteArray& json)
{
    JSONFields fields(json);
    const auto id = QUuid::fromString(fields.required<QString>(u"id"_s));
    const auto date
        = QDateTime::fromString(fields.required<QString>(u"idExpirationDate"_s), Qt::ISODateWithMs);
    SignerDraft signer{
        .id = id,
        .name = fields.required<QString>(u"name"_s),
        .email = fields.required<QString>(u"email"_s),
        .phone = fields.required<QString>(u"phone"_s),
        .idType = fields.required<QString>(u"idType"_s),
        .idExpirationDate = date,
    };
    if (!fields.areSound() || id.isNull() || !date.isValid())
        return {};
    return signer;
}
