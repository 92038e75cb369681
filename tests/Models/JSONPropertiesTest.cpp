#include "Generators.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

const QString key = u"v"_s;

rc::Gen<QJsonValue> anyValue()
{
    return Generate::value(3, {u"a"_s, u"b"_s, u"name"_s});
}

JSONObject holding(const QJsonValue& value)
{
    return JSONObject(QJsonObject{{key, value}});
}

/// The one case in which an accessor ends the program.
bool isFatal(const QJsonValue& value)
{
    return value.isDouble() && !(value.toDouble() >= -0x1p63 && value.toDouble() < 0x1p63)
        && value.toVariant().typeId() == QMetaType::Double;
}

RC_GTEST_PROP(JSONAccessors, NeverFailButForTheStatedNumbers, ())
{
    const QJsonValue value = *anyValue();
    const JSONObject object = holding(value);
    if (!isFatal(value))
        object.intValue(key);
    object.boolValue(key);
    RC_ASSERT(!object.string(key, u"fallback"_s).trimmed().isEmpty());
}

RC_GTEST_PROP(JSONAccessors, GiveTextsAsReceivedOrTheFallback, ())
{
    const QString text = *Generate::looseText();
    const QString given = holding(text).string(key, u"fallback"_s);
    RC_ASSERT(given == text || given == u"fallback"_s);
}

RC_GTEST_PROP(JSONAccessors, GiveEveryIntegerInEveryNotation, (qint64 number))
{
    RC_ASSERT(holding(number).intValue(key) == number);
    RC_ASSERT(holding(QString::number(number)).intValue(key) == number);
    RC_ASSERT(holding(number).string(key) == QString::number(number));
    RC_ASSERT(holding(number).boolValue(key) == (number != 0));
    if (number >= 0)
        RC_ASSERT(holding(u'+' + QString::number(number)).intValue(key) == number);
}

RC_GTEST_PROP(JSONAccessors, ReadTextsAsIntegersByTheGrammarAlone, ())
{
    static const QRegularExpression grammar(u"\\A[+-]?[0-9]+\\z"_s);
    const QString text = *Generate::looseText();
    const auto number = holding(text).intValue(key);
    if (!grammar.match(text).hasMatch())
        RC_ASSERT(!number);
    else if (text.size() <= 18)
        RC_ASSERT(number == text.toLongLong());
}

RC_GTEST_PROP(JSONAccessors, CutFractionsTowardsZero, (double number))
{
    RC_PRE(std::abs(number) < 0x1p63);
    const auto cut = holding(number).intValue(key);
    RC_ASSERT(cut.has_value());
    RC_ASSERT(static_cast<double>(*cut) == std::trunc(number));
}

RC_GTEST_PROP(JSONAccessors, GiveIntegersOfAnyLengthDigitByDigit, ())
{
    const std::string digits = *rc::gen::container<std::string>(rc::gen::element('0', '1', '9'));
    const QByteArray number
        = *rc::gen::element("", "-") + QByteArray("7") + QByteArray::fromStdString(digits);
    const QByteArray before = QByteArray(*rc::gen::inRange(0, 40), ' ');
    const auto object = JSONValue::parse("{\"v\":" + before + number + "}")->object();
    RC_ASSERT(object->string(key) == QString::fromLatin1(number));
}

RC_GTEST_PROP(JSONAccessors, RenderNumbersSoThatTheyReadBackTheSame, ())
{
    const QJsonValue number = *Generate::number();
    RC_ASSERT(holding(number).string(key).toDouble() == number.toDouble());
}

RC_GTEST_PROP(JSONParsing, ReadsWhatItRenders, ())
{
    const QJsonObject object = *Generate::object(3, {u"a"_s, u"b"_s, u"name"_s});
    const auto value = JSONValue::parse(QJsonDocument(object).toJson());
    RC_ASSERT(value && value->isObject());
    const auto again = JSONValue::parse(value->rendered().toUtf8());
    RC_ASSERT(again && again->object() == value->object());
}

RC_GTEST_PROP(JSONParsing, ReadsOrRefusesDamagedTexts, ())
{
    const QJsonObject object = *Generate::object(3, {u"a"_s, u"b"_s, u"name"_s});
    const QByteArray text = *Generate::damaged(QJsonDocument(object).toJson(QJsonDocument::Compact));
    const auto value = JSONValue::parse(text);
    RC_CLASSIFY(value.has_value(), "read");
    if (value)
        RC_ASSERT(JSONValue::parse(value->rendered().toUtf8()).has_value());
}

RC_GTEST_PROP(JSONParsing, ReadsOrRefusesArbitraryBytes, (std::string bytes))
{
    const auto value = JSONValue::parse(QByteArray::fromStdString(bytes));
    if (value)
        RC_ASSERT(JSONValue::parse(value->rendered().toUtf8()).has_value());
}

} // namespace
