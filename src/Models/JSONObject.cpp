#include "JSONObject.h"

#include "JSONInteger.h"
#include "JSONLongInteger.h"
#include "JSONScan.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

/// Cuts a number towards zero.
qint64 truncated(double number)
{
    constexpr double limit = 0x1p63; // exactly one more than the largest 64-bit integer
    if (!(number >= -limit && number < limit))
        qFatal("a number of an answer lies outside the 64-bit range: %g", number);
    return static_cast<qint64>(std::trunc(number));
}

/// Reads an optional sign and ASCII digits; stricter than QString::toLongLong, which skips blanks.
std::optional<qint64> decimal(const QString& text)
{
    const auto isDigit = [](QChar c) { return c >= u'0' && c <= u'9'; };
    const bool hasSign = text.startsWith(u'+') || text.startsWith(u'-');
    const QStringView digits = QStringView(text).sliced(hasSign ? 1 : 0);
    if (digits.isEmpty() || !std::all_of(digits.begin(), digits.end(), isDigit))
        return {};
    bool fits = false;
    const qint64 number = text.toLongLong(&fits);
    return fits ? std::optional(number) : std::nullopt;
}

/// A text as received, or the digits of the number that it stands for.
QString textOf(const QString& text)
{
    return JSONLongInteger::digitsOf(text).value_or(text);
}

/// The text of a list or an object.
QString compactText(const QJsonDocument& document)
{
    return QString::fromUtf8(JSONLongInteger::unmarked(document.toJson(QJsonDocument::Compact)));
}

/// Whether a text, trimmed, says that there is nothing.
bool saysNothing(const QString& trimmed)
{
    static const QList<QString> nullWords{u"<null>"_s, u"null"_s, u"nil"_s, u"(null)"_s};
    return trimmed.isEmpty() || nullWords.contains(trimmed.toLower());
}

QString renderedNumber(const QJsonValue& value)
{
    if (const auto number = integerOf(value))
        return QString::number(*number);
    return QString::number(value.toDouble(), 'g', QLocale::FloatingPointShortest);
}

} // namespace

std::optional<JSONValue> JSONValue::parse(const QByteArray& bytes)
{
    const JSONScan scan(bytes);
    if (scan.flaw() != JSONScan::Flaw::none)
        return {};
    const QByteArray marked = JSONLongInteger::marked(bytes, scan.longIntegers());
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(marked, &error);
    if (error.error != QJsonParseError::NoError)
        return {};
    if (document.isObject())
        return JSONValue(document.object());
    if (document.isArray())
        return JSONValue(document.array());
    return {};
}

std::optional<JSONObject> JSONValue::object() const
{
    if (!value_.isObject())
        return {};
    return JSONObject(value_.toObject());
}

std::optional<QList<JSONObject>> JSONValue::objects() const
{
    if (!value_.isArray())
        return {};
    const QJsonArray array = value_.toArray();
    QList<JSONObject> objects;
    objects.reserve(array.size());
    for (const QJsonValue element : array) {
        if (!element.isObject())
            return {};
        objects.append(JSONObject(element.toObject()));
    }
    return objects;
}

std::optional<QList<QString>> JSONValue::strings() const
{
    if (!value_.isArray())
        return {};
    const QJsonArray array = value_.toArray();
    QList<QString> strings;
    strings.reserve(array.size());
    for (const QJsonValue element : array) {
        if (!JSONValue(element).isString())
            return {};
        strings.append(element.toString());
    }
    return strings;
}

bool JSONValue::isString() const
{
    return value_.isString() && !JSONLongInteger::digitsOf(value_.toString());
}

QString JSONValue::string() const
{
    return isString() ? value_.toString() : QString();
}

QString JSONValue::rendered() const
{
    switch (value_.type()) {
    case QJsonValue::Null:
    case QJsonValue::Undefined:
        return u"null"_s;
    case QJsonValue::Bool:
        return value_.toBool() ? u"true"_s : u"false"_s;
    case QJsonValue::Double:
        return renderedNumber(value_);
    case QJsonValue::String:
        return textOf(value_.toString());
    case QJsonValue::Array:
        return compactText(QJsonDocument(value_.toArray()));
    case QJsonValue::Object:
        return compactText(QJsonDocument(value_.toObject()));
    }
    return {};
}

QString JSONObject::string(const QString& key, const QString& fallback) const
{
    const QJsonValue found = object_.value(key);
    if (found.isNull() || found.isUndefined())
        return fallback;
    const QString text = JSONValue(found).rendered();
    const QString trimmed = text.trimmed();
    if (saysNothing(trimmed))
        return fallback;
    return found.isString() ? text : trimmed;
}

std::optional<qint64> JSONObject::intValue(const QString& key) const
{
    const QJsonValue found = object_.value(key);
    if (found.isString()) {
        const QString text = found.toString();
        const auto digits = JSONLongInteger::digitsOf(text);
        return digits ? truncated(digits->toDouble()) : decimal(text);
    }
    if (!found.isDouble())
        return {};
    if (const auto number = integerOf(found))
        return number;
    return truncated(found.toDouble());
}

bool JSONObject::boolValue(const QString& key) const
{
    static const QList<QString> trueWords{u"1"_s, u"true"_s, u"yes"_s, u"on"_s};
    const QJsonValue found = object_.value(key);
    if (found.isString()) {
        const QString text = found.toString();
        return JSONLongInteger::digitsOf(text) || trueWords.contains(text.toLower());
    }
    if (found.isDouble())
        return integerOf(found).value_or(0) != 0;
    return found.toBool();
}

JSONObject JSONObject::with(const QString& key, const JSONValue& value) const
{
    QJsonObject changed = object_;
    changed.insert(key, value.value_);
    return JSONObject(changed);
}
