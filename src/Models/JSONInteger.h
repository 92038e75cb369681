#pragma once

#include <QJsonValue>

#include <cmath>
#include <optional>

/// The value of a number that is integral and fits into 64 bits; the parser reads 12.0 and 1e3 as such, too.
inline std::optional<qint64> integerOf(const QJsonValue& value)
{
    if (std::isnan(value.toDouble()))
        return {};
    // toInteger() answers with its argument exactly for what else is no integer.
    const qint64 number = value.toInteger(0);
    return number == value.toInteger(1) ? std::optional(number) : std::nullopt;
}
