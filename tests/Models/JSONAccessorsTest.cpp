#include "JSONObject.h"
#include "Rows.h"

#include <limits>

using namespace Qt::StringLiterals;

namespace {

const QString key = u"v"_s;

JSONObject holding(const QByteArray& json)
{
    return jsonObject(R"({"other":"x","v":)" + json + "}");
}

struct StringRow : Named
{
    QByteArray json;
    std::optional<QString> text; ///< nothing where the fallback is to be given
};

class StringAccessor : public testing::TestWithParam<StringRow>
{ };

TEST_P(StringAccessor, GivesTheTextOrTheFallback)
{
    const JSONObject object = holding(GetParam().json);
    EXPECT_EQ(object.string(key, u"fallback"_s), GetParam().text.value_or(u"fallback"_s));
    EXPECT_EQ(object.string(key), GetParam().text.value_or(QString()));
}

INSTANTIATE_TEST_SUITE_P(Texts, StringAccessor,
    testing::Values(StringRow{{"Plain"}, R"("pending")", u"pending"_s},
        StringRow{{"BlanksAroundStay"}, R"(" pending\n")", u" pending\n"_s},
        StringRow{{"Empty"}, R"("")", {}}, StringRow{{"Blank"}, R"(" \t\r\n")", {}},
        StringRow{{"NoBreakSpace"}, R"("\u00a0")", {}}, StringRow{{"NullWord"}, R"("null")", {}},
        StringRow{{"NullInCapitals"}, R"("NULL")", {}}, StringRow{{"NullWithBlanks"}, R"(" Null ")", {}},
        StringRow{{"NilWord"}, R"("nil")", {}}, StringRow{{"NilMixed"}, R"("Nil")", {}},
        StringRow{{"AngledNull"}, R"("<null>")", {}}, StringRow{{"AngledNullMixed"}, R"("<NULL>")", {}},
        StringRow{{"BracketedNull"}, "\"(null)\"", {}}, StringRow{{"BracketedNullMixed"}, "\"(Null)\"", {}},
        StringRow{{"BracketedNilIsText"}, "\"(nil)\"", u"(nil)"_s},
        StringRow{{"NullInsideIsText"}, R"("null and void")", u"null and void"_s},
        StringRow{{"BlankInsideNull"}, R"("< null >")", u"< null >"_s},
        StringRow{{"Undefined"}, R"("undefined")", u"undefined"_s}, StringRow{{"Zero"}, R"("0")", u"0"_s},
        StringRow{{"NulCharacter"}, R"("\u0000")", QString(QChar::Null)},
        StringRow{{"Markup"}, R"("<b>x</b>")", u"<b>x</b>"_s}),
    RowName());

INSTANTIATE_TEST_SUITE_P(OtherTypes, StringAccessor,
    testing::Values(StringRow{{"Null"}, "null", {}}, StringRow{{"Integer"}, "42", u"42"_s},
        StringRow{{"ZeroNumber"}, "0", u"0"_s}, StringRow{{"Negative"}, "-1", u"-1"_s},
        StringRow{{"Fraction"}, "4.5", u"4.5"_s}, StringRow{{"True"}, "true", u"true"_s},
        StringRow{{"False"}, "false", u"false"_s}, StringRow{{"EmptyList"}, "[]", u"[]"_s},
        StringRow{{"List"}, R"([" a ", null])", uR"([" a ",null])"_s},
        StringRow{{"EmptyObject"}, "{}", u"{}"_s}, StringRow{{"Object"}, R"({"a": 1})", uR"({"a":1})"_s}),
    RowName());

INSTANTIATE_TEST_SUITE_P(LongIntegers, StringAccessor,
    testing::Values(StringRow{{"Largest64Bit"}, "9223372036854775807", u"9223372036854775807"_s},
        StringRow{{"Smallest64Bit"}, "-9223372036854775808", u"-9223372036854775808"_s},
        StringRow{{"OneAbove"}, "9223372036854775808", u"9223372036854775808"_s},
        StringRow{{"OneBelow"}, "-9223372036854775809", u"-9223372036854775809"_s},
        StringRow{{"LargestUnsigned"}, "18446744073709551615", u"18446744073709551615"_s},
        StringRow{{"Reference"}, "20260412000000012345", u"20260412000000012345"_s},
        StringRow{{"BlanksAround"}, " \n20260412000000012345\t", u"20260412000000012345"_s},
        StringRow{{"HundredDigits"}, QByteArray(100, '7'), QString(100, u'7')},
        StringRow{{"BeyondAllDoubles"}, QByteArray(1'000, '7'), QString(1'000, u'7')},
        StringRow{{"Nineteen"}, "1234567890123456789", u"1234567890123456789"_s},
        StringRow{{"AsAText"}, R"("20260412000000012345")", u"20260412000000012345"_s},
        StringRow{{"WithinAText"}, R"("a [20260412000000012345]")", u"a [20260412000000012345]"_s},
        StringRow{{"BehindAQuote"}, R"("\":20260412000000012345,")", u"\":20260412000000012345,"_s},
        StringRow{{"BehindABackslash"}, R"("\\")", u"\\"_s},
        StringRow{{"FractionOfManyDigits"}, "1.20260412000000012345", u"1.2026041200000002"_s},
        StringRow{{"IntegralFraction"}, "20260412000000012345.0", u"20260412000000012000"_s},
        StringRow{{"Exponent"}, "20260412000000012345e0", u"20260412000000012000"_s},
        StringRow{{"InAList"}, "[20260412000000012345]", u"[20260412000000012345]"_s}),
    RowName());

TEST(StringAccessorChain, FallsBackWhenTheKeyOrTheObjectIsMissing)
{
    EXPECT_EQ(JSONObject().string(key, u"fallback"_s), u"fallback"_s);
    EXPECT_EQ(jsonObject(R"({"V":"x"})").string(key, u"fallback"_s), u"fallback"_s);
}

TEST(StringAccessorChain, ReturnsTheFallbackAsItIs)
{
    EXPECT_EQ(JSONObject().string(key, u" null "_s), u" null "_s);
}

TEST(StringAccessorChain, LetsTheOuterKeyWin)
{
    const auto chain = [](const QByteArray& json) {
        const JSONObject object = jsonObject(json);
        return object.string(u"outer"_s, object.string(u"inner"_s, u"default"_s));
    };
    EXPECT_EQ(chain(R"({"outer":"o","inner":"i"})"), u"o"_s);
    EXPECT_EQ(chain(R"({"outer":" ","inner":"i"})"), u"i"_s);
    EXPECT_EQ(chain(R"({"outer":null,"inner":"nil"})"), u"default"_s);
}

struct IntRow : Named
{
    QByteArray json;
    std::optional<qint64> number;
};

class IntAccessor : public testing::TestWithParam<IntRow>
{ };

TEST_P(IntAccessor, GivesTheIntegerOrNothing)
{
    EXPECT_EQ(holding(GetParam().json).intValue(key), GetParam().number);
}

constexpr qint64 largest = std::numeric_limits<qint64>::max();
constexpr qint64 smallest = std::numeric_limits<qint64>::min();

INSTANTIATE_TEST_SUITE_P(Numbers, IntAccessor,
    testing::Values(IntRow{{"Integer"}, "2048", 2048}, IntRow{{"Zero"}, "0", 0},
        IntRow{{"NegativeZero"}, "-0", 0}, IntRow{{"NegativeZeroFraction"}, "-0.0", 0},
        IntRow{{"Fraction"}, "12.9", 12}, IntRow{{"NegativeFraction"}, "-12.9", -12},
        IntRow{{"BelowOne"}, "0.999", 0}, IntRow{{"AboveMinusOne"}, "-0.999", 0},
        IntRow{{"Tiny"}, "5e-324", 0}, IntRow{{"IntegralFraction"}, "12.0", 12},
        IntRow{{"Exponent"}, "1e3", 1000},
        IntRow{{"BeyondExactDoubles"}, "9007199254740993", 9007199254740993},
        IntRow{{"Largest"}, "9223372036854775807", largest},
        IntRow{{"Smallest"}, "-9223372036854775808", smallest},
        IntRow{{"SmallestAsFraction"}, "-9223372036854775808.0", smallest},
        IntRow{{"RoundedToTheSmallest"}, "-9223372036854775809", smallest},
        IntRow{{"LargestDoubleInRange"}, "9.223372036854774784e18", 9223372036854774784}),
    RowName());

INSTANTIATE_TEST_SUITE_P(Texts, IntAccessor,
    testing::Values(IntRow{{"Digits"}, R"("2048")", 2048}, IntRow{{"Plus"}, R"("+7")", 7},
        IntRow{{"Minus"}, R"("-7")", -7}, IntRow{{"MinusZero"}, R"("-0")", 0},
        IntRow{{"LeadingZeros"}, R"("0000000000000000000000000000007")", 7},
        IntRow{{"LargestText"}, R"("9223372036854775807")", largest},
        IntRow{{"SmallestText"}, R"("-9223372036854775808")", smallest},
        IntRow{{"OneTooLarge"}, R"("9223372036854775808")", {}},
        IntRow{{"OneTooSmall"}, R"("-9223372036854775809")", {}},
        IntRow{{"FarTooLarge"}, R"("18446744073709551616")", {}},
        IntRow{{"ManyDigits"}, R"("99999999999999999999999999999999999999999")", {}},
        IntRow{{"Empty"}, R"("")", {}}, IntRow{{"Blank"}, R"(" ")", {}},
        IntRow{{"LeadingBlank"}, R"(" 2048")", {}}, IntRow{{"TrailingBlank"}, R"("12 ")", {}},
        IntRow{{"TrailingNewline"}, R"("12\n")", {}}, IntRow{{"TrailingNul"}, R"("12\u0000")", {}},
        IntRow{{"PlusOnly"}, R"("+")", {}}, IntRow{{"MinusOnly"}, R"("-")", {}},
        IntRow{{"TwoSigns"}, R"("+-7")", {}}, IntRow{{"DoublePlus"}, R"("++7")", {}},
        IntRow{{"BlankAfterSign"}, R"("- 7")", {}}, IntRow{{"SignBehind"}, R"("7-")", {}},
        IntRow{{"Point"}, R"("12.0")", {}}, IntRow{{"Exponent"}, R"("1e3")", {}},
        IntRow{{"Hexadecimal"}, R"("0x10")", {}}, IntRow{{"Group"}, R"("1,000")", {}},
        IntRow{{"Underscore"}, R"("1_000")", {}}, IntRow{{"Letters"}, R"("twelve")", {}},
        IntRow{{"Nan"}, R"("nan")", {}}, IntRow{{"Inf"}, R"("inf")", {}},
        IntRow{{"NullWord"}, R"("null")", {}}, IntRow{{"ArabicDigit"}, R"("٣")", {}},
        IntRow{{"FullwidthDigit"}, R"("７")", {}}, IntRow{{"UnicodeMinus"}, R"("−7")", {}}),
    RowName());

INSTANTIATE_TEST_SUITE_P(OtherTypes, IntAccessor,
    testing::Values(IntRow{{"Null"}, "null", {}}, IntRow{{"True"}, "true", {}},
        IntRow{{"False"}, "false", {}}, IntRow{{"List"}, "[1]", {}}, IntRow{{"Object"}, R"({"v":1})", {}}),
    RowName());

TEST(IntAccessorAbsent, IsNothing)
{
    EXPECT_EQ(JSONObject().intValue(key), std::nullopt);
    EXPECT_EQ(jsonObject(R"({"V":1})").intValue(key), std::nullopt);
}

struct FatalRow : Named
{
    double number;
};

class IntAccessorDeathTest : public testing::TestWithParam<FatalRow>
{ };

TEST_P(IntAccessorDeathTest, EndsTheProgram)
{
    const JSONObject object(QJsonObject{{key, GetParam().number}});
    EXPECT_DEATH(object.intValue(key), "64-bit range");
}

INSTANTIATE_TEST_SUITE_P(Numbers, IntAccessorDeathTest,
    testing::Values(FatalRow{{"TwoToThe63"}, 0x1p63}, FatalRow{{"TwoToThe64"}, 0x1p64},
        FatalRow{{"BelowMinusTwoToThe63"}, -0x1.0000000000001p63}, FatalRow{{"Huge"}, 1e308},
        FatalRow{{"HugeNegative"}, -1e308}, FatalRow{{"Infinity"}, std::numeric_limits<double>::infinity()},
        FatalRow{{"MinusInfinity"}, -std::numeric_limits<double>::infinity()},
        FatalRow{{"NotANumber"}, std::numeric_limits<double>::quiet_NaN()}),
    RowName());

TEST(IntAccessorDeathTest, EndsTheProgramForParsedNumbersToo)
{
    const QByteArray manyDigits(1'000, '7');
    for (const QByteArray& json : {QByteArray("9223372036854775808"), QByteArray("18446744073709551616"),
             manyDigits, QByteArray("-9.3e18"), QByteArray("1e300")})
        EXPECT_DEATH(holding(json).intValue(key), "64-bit range") << json.constData();
}

struct BoolRow : Named
{
    QByteArray json;
    bool isTrue;
};

class BoolAccessor : public testing::TestWithParam<BoolRow>
{ };

TEST_P(BoolAccessor, GivesTrueOrFalse)
{
    EXPECT_EQ(holding(GetParam().json).boolValue(key), GetParam().isTrue);
}

INSTANTIATE_TEST_SUITE_P(Values, BoolAccessor,
    testing::Values(BoolRow{{"True"}, "true", true}, BoolRow{{"False"}, "false", false},
        BoolRow{{"One"}, "1", true}, BoolRow{{"Two"}, "2", true}, BoolRow{{"MinusOne"}, "-1", true},
        BoolRow{{"Zero"}, "0", false}, BoolRow{{"NegativeZero"}, "-0", false},
        BoolRow{{"LongInteger"}, "20260412000000012345", true}, BoolRow{{"Fraction"}, "2.5", false},
        BoolRow{{"BeyondIntegers"}, "1e20", false}, BoolRow{{"TextOne"}, R"("1")", true},
        BoolRow{{"TextTrue"}, R"("true")", true}, BoolRow{{"TextTrueInCapitals"}, R"("TRUE")", true},
        BoolRow{{"TextYes"}, R"("Yes")", true}, BoolRow{{"TextYesMixed"}, R"("yEs")", true},
        BoolRow{{"TextOn"}, R"("On")", true}, BoolRow{{"TextY"}, R"("y")", false},
        BoolRow{{"TextT"}, R"("t")", false}, BoolRow{{"TextTwo"}, R"("2")", false},
        BoolRow{{"TextZero"}, R"("0")", false}, BoolRow{{"TextOff"}, R"("off")", false},
        BoolRow{{"TextFalse"}, R"("false")", false}, BoolRow{{"LeadingBlank"}, R"(" true")", false},
        BoolRow{{"TrailingBlank"}, R"("1 ")", false}, BoolRow{{"PlusOne"}, R"("+1")", false},
        BoolRow{{"EmptyText"}, R"("")", false}, BoolRow{{"Null"}, "null", false},
        BoolRow{{"List"}, "[true]", false}, BoolRow{{"Object"}, R"({"v":true})", false}),
    RowName());

TEST(BoolAccessorAbsent, IsFalse)
{
    EXPECT_FALSE(JSONObject().boolValue(key));
    EXPECT_FALSE(jsonObject(R"({"V":true})").boolValue(key));
}

} // namespace
