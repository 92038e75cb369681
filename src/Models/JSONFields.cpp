#include "JSONFields.h"

#include "JSONInteger.h"

#include <QJsonDocument>

JSONFields::JSONFields(const QByteArray& json)
{
    const QJsonDocument document = QJsonDocument::fromJson(json);
    areSound_ = document.isObject();
    object_ = document.object();
}

template <>
std::optional<QString> JSONFields::typed(const QJsonValue& value)
{
    return value.isString() ? std::optional(value.toString()) : std::nullopt;
}

template <>
std::optional<bool> JSONFields::typed(const QJsonValue& value)
{
    return value.isBool() ? std::optional(value.toBool()) : std::nullopt;
}

template <>
std::optional<qint64> JSONFields::typed(const QJsonValue& value)
{
    return integerOf(value);
}
