#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QString>

#include <optional>

/// Reads what this program itself has written: strictly, unlike the accessors for the bridge's answers. One
/// wrong field spoils the whole, which areSound() tells once all fields have been asked for.
class JSONFields
{
public:
    /// \param json  one JSON object; anything else is unsound from the start
    explicit JSONFields(const QByteArray& json);

    /// The value under a key that must hold one of this type: QString, bool, or qint64 for integral numbers.
    template <typename Value>
    Value required(const QString& key)
    {
        return checked(typed<Value>(object_.value(key))).value_or(Value());
    }

    /// The same for a key that may be absent or null.
    template <typename Value>
    std::optional<Value> optional(const QString& key)
    {
        const QJsonValue value = object_.value(key);
        if (value.isNull() || value.isUndefined())
            return {};
        return checked(typed<Value>(value));
    }

    bool areSound() const { return areSound_; }

private:
    template <typename Value>
    static std::optional<Value> typed(const QJsonValue& value);

    template <typename Value>
    std::optional<Value> checked(std::optional<Value> value)
    {
        areSound_ = areSound_ && value.has_value();
        return value;
    }

    QJsonObject object_;
    bool areSound_;
};

template <>
std::optional<QString> JSONFields::typed(const QJsonValue& value);
template <>
std::optional<bool> JSONFields::typed(const QJsonValue& value);
template <>
std::optional<qint64> JSONFields::typed(const QJsonValue& value);
