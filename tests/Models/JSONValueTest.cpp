#include "JSONObject.h"
#include "Rows.h"

using namespace Qt::StringLiterals;

namespace {

const JSONObject sample = jsonObject(R"({
    "text": " a ", "number": 7, "fraction": 4.5, "flag": true, "nothing": null,
    "object": {"b": 1}, "objects": [{"c": 1}, {}], "texts": ["x", " y "], "empty": [],
    "mixed": [{"c": 1}, 2], "mixedTexts": ["x", null],
    "long": 20260412000000012345, "mixedLong": ["x", 20260412000000012345]})");

TEST(JSONValue, TellsItsType)
{
    EXPECT_TRUE(JSONValue().isNull());
    EXPECT_TRUE(sample.value(u"nothing"_s).isNull());
    EXPECT_TRUE(sample.value(u"absent"_s).isNull());
    EXPECT_FALSE(sample.value(u"flag"_s).isNull());
    EXPECT_TRUE(sample.value(u"text"_s).isString());
    EXPECT_FALSE(sample.value(u"number"_s).isString());
    EXPECT_FALSE(sample.value(u"long"_s).isString());
    EXPECT_TRUE(sample.value(u"object"_s).isObject());
    EXPECT_FALSE(sample.value(u"objects"_s).isObject());
}

TEST(JSONValue, GivesTheTextOfStringsOnly)
{
    EXPECT_EQ(sample.value(u"text"_s).string(), u" a "_s);
    EXPECT_EQ(sample.value(u"number"_s).string(), QString());
    EXPECT_EQ(sample.value(u"long"_s).string(), QString());
    EXPECT_EQ(sample.value(u"absent"_s).string(), QString());
}

TEST(JSONValue, GivesObjects)
{
    EXPECT_EQ(sample.object(u"object"_s), jsonObject(R"({"b":1})"));
    EXPECT_EQ(sample.object(u"objects"_s), std::nullopt);
    EXPECT_EQ(sample.object(u"text"_s), std::nullopt);
    EXPECT_EQ(sample.object(u"absent"_s), std::nullopt);
}

TEST(JSONValue, GivesListsOfNothingButObjects)
{
    EXPECT_EQ(sample.value(u"objects"_s).objects(), (QList{jsonObject(R"({"c":1})"), JSONObject()}));
    EXPECT_EQ(sample.value(u"empty"_s).objects(), QList<JSONObject>());
    EXPECT_EQ(sample.value(u"mixed"_s).objects(), std::nullopt);
    EXPECT_EQ(sample.value(u"texts"_s).objects(), std::nullopt);
    EXPECT_EQ(sample.value(u"object"_s).objects(), std::nullopt);
    EXPECT_EQ(sample.value(u"absent"_s).objects(), std::nullopt);
}

TEST(JSONValue, GivesListsOfNothingButTexts)
{
    EXPECT_EQ(sample.value(u"texts"_s).strings(), (QList{u"x"_s, u" y "_s}));
    EXPECT_EQ(sample.value(u"empty"_s).strings(), QList<QString>());
    EXPECT_EQ(sample.value(u"mixedTexts"_s).strings(), std::nullopt);
    EXPECT_EQ(sample.value(u"mixedLong"_s).strings(), std::nullopt);
    EXPECT_EQ(sample.value(u"objects"_s).strings(), std::nullopt);
    EXPECT_EQ(sample.value(u"text"_s).strings(), std::nullopt);
    EXPECT_EQ(sample.value(u"absent"_s).strings(), std::nullopt);
}

struct RenderedRow : Named
{
    QByteArray json;
    QString text;
};

class RenderedValue : public testing::TestWithParam<RenderedRow>
{ };

TEST_P(RenderedValue, ReadsNaturally)
{
    EXPECT_EQ(jsonObject(R"({"v":)" + GetParam().json + "}").value(u"v"_s).rendered(), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Values, RenderedValue,
    testing::Values(RenderedRow{{"Text"}, R"(" a ")", u" a "_s}, RenderedRow{{"Integer"}, "42", u"42"_s},
        RenderedRow{{"NegativeInteger"}, "-7", u"-7"_s},
        RenderedRow{{"LargeInteger"}, "9007199254740993", u"9007199254740993"_s},
        RenderedRow{{"IntegralFraction"}, "12.0", u"12"_s}, RenderedRow{{"Fraction"}, "4.5", u"4.5"_s},
        RenderedRow{{"ShortestFraction"}, "0.1", u"0.1"_s},
        RenderedRow{{"LongFraction"}, "0.30000000000000004", u"0.30000000000000004"_s},
        RenderedRow{{"LongInteger"}, "20260412000000012345", u"20260412000000012345"_s},
        RenderedRow{{"BeyondIntegers"}, "1e20", u"1e+20"_s}, RenderedRow{{"True"}, "true", u"true"_s},
        RenderedRow{{"False"}, "false", u"false"_s}, RenderedRow{{"Null"}, "null", u"null"_s},
        RenderedRow{{"List"}, R"([ 1, "a" ])", uR"([1,"a"])"_s},
        RenderedRow{{"ListOfLongIntegers"}, R"([ -20260412000000012345 , 18446744073709551616, "a" ])",
            uR"([-20260412000000012345,18446744073709551616,"a"])"_s},
        RenderedRow{{"Object"}, R"({ "b" : [ ] })", uR"({"b":[]})"_s},
        RenderedRow{{"ObjectWithALongInteger"}, R"({"b":{"c":18446744073709551615}})",
            uR"({"b":{"c":18446744073709551615}})"_s}),
    RowName());

TEST(JSONObject, IsLookedInto)
{
    EXPECT_TRUE(JSONObject().isEmpty());
    EXPECT_FALSE(sample.isEmpty());
    EXPECT_TRUE(sample.contains(u"nothing"_s));
    EXPECT_FALSE(sample.contains(u"absent"_s));
    EXPECT_EQ(jsonObject(R"({"b":1,"a":2})").keys(), (QList{u"a"_s, u"b"_s}));
}

TEST(JSONObject, IsCopiedWithOneMemberSet)
{
    const JSONObject one = jsonObject(R"({"a":1,"b":2})");
    EXPECT_EQ(one.with(u"a"_s, sample.value(u"object"_s)), jsonObject(R"({"a":{"b":1},"b":2})"));
    EXPECT_EQ(one.with(u"c"_s, sample.value(u"text"_s)), jsonObject(R"({"a":1,"b":2,"c":" a "})"));
    EXPECT_EQ(one, jsonObject(R"({"a":1,"b":2})"));
}

} // namespace
