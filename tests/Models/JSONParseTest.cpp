#include "JSONObject.h"
#include "Rows.h"

using namespace Qt::StringLiterals;

namespace {

/// \returns nothing when the text is refused, else the parsed value as compact JSON.
std::optional<QString> readBack(const QByteArray& text)
{
    const auto value = JSONValue::parse(text);
    return value ? std::optional(value->rendered()) : std::nullopt;
}

struct AcceptedRow : Named
{
    QByteArray text;
    QString value;
};

class AcceptedJSON : public testing::TestWithParam<AcceptedRow>
{ };

TEST_P(AcceptedJSON, IsRead)
{
    EXPECT_EQ(readBack(GetParam().text), GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(Documents, AcceptedJSON,
    testing::Values(AcceptedRow{{"EmptyObject"}, "{}", u"{}"_s}, AcceptedRow{{"EmptyList"}, "[]", u"[]"_s},
        AcceptedRow{{"BlanksAround"}, " \t\r\n[ 1 ] \n", u"[1]"_s},
        AcceptedRow{
            {"Nested"}, R"({"a":[{"b":null},[true,false]]})", uR"({"a":[{"b":null},[true,false]]})"_s},
        AcceptedRow{{"EmptyKey"}, R"({"":0})", uR"({"":0})"_s},
        AcceptedRow{{"LastDuplicateWins"}, R"({"a":1,"a":2})", uR"({"a":2})"_s},
        AcceptedRow{{"NegativeZero"}, "[-0]", u"[0]"_s},
        AcceptedRow{{"NegativeZeroFraction"}, "[-0.0]", u"[0]"_s},
        AcceptedRow{{"Exponent"}, "[1E+2,1e-2,25e-1]", u"[100,0.01,2.5]"_s},
        AcceptedRow{{"LargestInteger"}, "[9223372036854775807]", u"[9223372036854775807]"_s},
        AcceptedRow{{"SmallestInteger"}, "[-9223372036854775808]", u"[-9223372036854775808]"_s},
        AcceptedRow{{"LongIntegers"}, "[20260412000000012345,-20260412000000012345 ]",
            u"[20260412000000012345,-20260412000000012345]"_s},
        AcceptedRow{{"LongIntegersInObjects"}, R"({"a":[{"b": 20260412000000012345 }],"c":1})",
            uR"({"a":[{"b":20260412000000012345}],"c":1})"_s},
        AcceptedRow{{"LongDigitsInTexts"}, R"({"20260412000000012345":"20260412000000012345"})",
            uR"({"20260412000000012345":"20260412000000012345"})"_s},
        AcceptedRow{{"BeyondTheExactDoubles"}, "[9007199254740993]", u"[9007199254740993]"_s},
        AcceptedRow{{"SmallestDouble"}, "[5e-324]", u"[5e-324]"_s},
        AcceptedRow{{"Escapes"}, R"(["\"\\\/\b\f\n\r\t\u00e9"])", u"[\"\\\"\\\\/\\b\\f\\n\\r\\té\"]"_s},
        AcceptedRow{{"SurrogatePair"}, R"(["\uD83D\uDE00"])", u"[\"😀\"]"_s},
        AcceptedRow{{"Utf8"}, "[\"é•😀\"]", u"[\"é•😀\"]"_s},
        AcceptedRow{{"NulEscape"}, R"(["a\u0000b"])", u"[\"a\\u0000b\"]"_s},
        AcceptedRow{{"Noncharacter"}, R"(["\uFFFF"])", u"[\"\uFFFF\"]"_s},
        AcceptedRow{{"ByteOrderMark"}, "\xEF\xBB\xBF[]", u"[]"_s}),
    RowName());

struct RefusedRow : Named
{
    QByteArray text;
};

class RefusedJSON : public testing::TestWithParam<RefusedRow>
{ };

TEST_P(RefusedJSON, IsNoValue)
{
    EXPECT_EQ(readBack(GetParam().text), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(Structure, RefusedJSON,
    testing::Values(RefusedRow{{"Nothing"}, ""}, RefusedRow{{"Blank"}, " "},
        RefusedRow{{"TopLevelNumber"}, "1"}, RefusedRow{{"TopLevelText"}, R"("a")"},
        RefusedRow{{"TopLevelNull"}, "null"}, RefusedRow{{"TopLevelTrue"}, "true"},
        RefusedRow{{"ListCut"}, "[1"}, RefusedRow{{"ObjectCut"}, R"({"a":1)"},
        RefusedRow{{"TextCut"}, R"(["a)"}, RefusedRow{{"EscapeCut"}, R"(["\)"},
        RefusedRow{{"KeyOnly"}, R"({"a"})"}, RefusedRow{{"NoColon"}, R"({"a" 1})"},
        RefusedRow{{"NoValue"}, R"({"a":})"}, RefusedRow{{"CommaAtEndOfList"}, "[1,]"},
        RefusedRow{{"CommaAtEndOfObject"}, R"({"a":1,})"}, RefusedRow{{"DoubleComma"}, "[1,,2]"},
        RefusedRow{{"LeadingComma"}, "[,1]"}, RefusedRow{{"NoComma"}, "[1 2]"},
        RefusedRow{{"WrongBracket"}, "[1}"}, RefusedRow{{"OnlyClosing"}, "]"},
        RefusedRow{{"TwoDocuments"}, "{}{}"}, RefusedRow{{"GarbageAfter"}, "[]x"},
        RefusedRow{{"Comment"}, "[/* a */]"}, RefusedRow{{"BareKey"}, "{a:1}"},
        RefusedRow{{"SingleQuotes"}, "['a']"}, RefusedRow{{"NumberAsKey"}, "{1:1}"},
        RefusedRow{{"HtmlPage"}, "<html><body>502</body></html>"}),
    RowName());

INSTANTIATE_TEST_SUITE_P(Scalars, RefusedJSON,
    testing::Values(RefusedRow{{"WordCut"}, "[tru]"}, RefusedRow{{"WordInCapitals"}, "[True]"},
        RefusedRow{{"Undefined"}, "[undefined]"}, RefusedRow{{"NotANumber"}, "[NaN]"},
        RefusedRow{{"Infinity"}, "[Infinity]"}, RefusedRow{{"BeyondAllDoubles"}, "[1e400]"},
        RefusedRow{{"BeyondAllDoublesNegative"}, "[-1e400]"}, RefusedRow{{"BelowAllDoubles"}, "[1e-400]"},
        RefusedRow{{"Plus"}, "[+1]"}, RefusedRow{{"MinusOnly"}, "[-]"}, RefusedRow{{"DoubleMinus"}, "[--1]"},
        RefusedRow{{"Hexadecimal"}, "[0x1]"}, RefusedRow{{"LeadingZero"}, "[012]"},
        RefusedRow{{"ExponentCut"}, "[1e]"}, RefusedRow{{"TwoDots"}, "[1.2.3]"},
        RefusedRow{{"ShortUnicodeEscape"}, R"(["\u12"])"}, RefusedRow{{"BadUtf8"}, "[\"\xFF\"]"},
        RefusedRow{{"OverlongUtf8"}, "[\"\xC0\xAF\"]"}, RefusedRow{{"Utf8Surrogate"}, "[\"\xED\xA0\x80\"]"},
        RefusedRow{{"Utf16"}, QByteArray("[\0]\0", 4)}),
    RowName());

INSTANTIATE_TEST_SUITE_P(KindnessOfTheParser, RefusedJSON,
    testing::Values(RefusedRow{{"NoWholePart"}, "[.5]"}, RefusedRow{{"NoWholePartNegative"}, "[-.5]"},
        RefusedRow{{"NoFraction"}, "[1.]"}, RefusedRow{{"NoFractionNegative"}, "[-1.]"},
        RefusedRow{{"NoFractionBeforeTheExponent"}, "[1.e2]"},
        RefusedRow{{"NoWholePartInAnObject"}, R"({"a":.5})"}, RefusedRow{{"UnknownEscape"}, R"(["\x41"])"},
        RefusedRow{{"EscapedLetter"}, R"(["\a"])"}, RefusedRow{{"EscapedCapital"}, R"(["\N"])"},
        RefusedRow{{"EscapedTab"}, "[\"\\\t\"]"}, RefusedRow{{"EscapedNul"}, QByteArray("[\"\\\0\"]", 6)},
        RefusedRow{{"EscapedByteThatIsNoAscii"}, "[\"\\\u00E9\"]"},
        RefusedRow{{"UnknownEscapeInAKey"}, R"({"\q":1})"}, RefusedRow{{"Tab"}, "[\"a\tb\"]"},
        RefusedRow{{"LineEnd"}, "[\"a\nb\"]"}, RefusedRow{{"Nul"}, QByteArray("[\"a\0b\"]", 7)},
        RefusedRow{{"LastControlCharacter"}, "[\"\x1F\"]"},
        RefusedRow{{"ControlCharacterInAKey"}, "{\"\x01\":1}"},
        RefusedRow{
            {"ControlCharacterInALongText"}, '"' + QByteArray(100, 'a') + '\n' + QByteArray(100, 'a')}),
    RowName());

QByteArray nested(int depth, const QByteArray& opening, const QByteArray& closing)
{
    return opening.repeated(depth) + "1" + closing.repeated(depth);
}

TEST(JSONDepth, IsReadUpTo1024)
{
    EXPECT_TRUE(JSONValue::parse(nested(1'024, "[", "]")));
    EXPECT_TRUE(JSONValue::parse(nested(1'024, R"({"a":)", "}")));
}

TEST(JSONDepth, IsRefusedBeyond)
{
    for (const int depth : {1'025, 100'000}) {
        EXPECT_FALSE(JSONValue::parse(nested(depth, "[", "]"))) << depth;
        EXPECT_FALSE(JSONValue::parse(nested(depth, R"({"a":)", "}"))) << depth;
        EXPECT_FALSE(JSONValue::parse(QByteArray("[").repeated(depth))) << depth;
    }
}

TEST(JSONDepth, DoesNotHinderRendering)
{
    const QByteArray deep = nested(1'023, "[", "]");
    const JSONObject object = jsonObject(R"({"a":)" + deep + "}");
    EXPECT_EQ(object.string(u"a"_s).toUtf8(), deep);
}

} // namespace
