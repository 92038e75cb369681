#include "Http/Fields.h"
#include "Http/Call.h"
#include "Http/Problem.h"

#include <gtest/gtest.h>

using namespace bridge;
using Json = nlohmann::json;

static const Fields sample(Json{{"text", " a b \n"}, {"number", 12}, {"digits", " 12 "}, {"fraction", 1.5},
    {"yes", "YES"}, {"one", 1}, {"zero", "0"}, {"no", "no"}, {"true", true}, {"null", nullptr},
    {"list", {" x ", 2, nullptr}}, {"object", {{"inner", "value"}}}});

TEST(Fields, ReadsTexts)
{
    EXPECT_EQ(sample.text("text"), "a b");
    EXPECT_EQ(sample.untrimmedText("text"), " a b \n");
    EXPECT_EQ(sample.text("number"), "12");
    for (const char* key : {"null", "list", "object", "absent"})
        EXPECT_EQ(sample.text(key), "") << key;
    EXPECT_EQ(sample.firstText({"absent", "null", "digits", "text"}), "12");
    EXPECT_EQ(sample.texts("list"), (std::vector<std::string>{"x", "2", ""}));
    EXPECT_TRUE(sample.texts("text").empty());
    EXPECT_EQ(sample.inner("object").text("inner"), "value");
    EXPECT_FALSE(sample.inner("list").has("inner"));
}

TEST(Fields, ReadsNumbers)
{
    EXPECT_EQ(sample.number("number"), 12);
    EXPECT_EQ(sample.number("digits"), 12);
    for (const char* key : {"fraction", "text", "null", "list", "absent"})
        EXPECT_EQ(sample.number(key), std::nullopt) << key;
    EXPECT_EQ(Fields(Json{{"n", "99999999999999999999"}}).number("n"), std::nullopt);
}

TEST(Fields, ReadsFlags)
{
    for (const char* key : {"true", "yes", "one", "number"})
        EXPECT_TRUE(sample.flag(key)) << key;
    for (const char* key : {"zero", "no", "null", "text", "absent", "list"})
        EXPECT_FALSE(sample.flag(key)) << key;
}

TEST(Fields, ATextThatIsTooLongIsRefusedByItsName)
{
    const std::string umlauts = [] {
        std::string text;
        for (std::size_t i = 0; i < Fields::shortText; ++i)
            text += "ü";
        return text;
    }();
    const Fields fields(Json{{"fits", umlauts}, {"blanks", "  " + umlauts + "  "}, {"long", umlauts + "x"},
        {"novel", std::string(Fields::longText + 1, 'x')}, {"list", {"fits", umlauts + "x"}}});
    EXPECT_EQ(fields.text("fits"), umlauts) << "characters count, not bytes";
    EXPECT_EQ(fields.text("blanks"), umlauts);
    EXPECT_EQ(fields.text("long", Fields::longText), umlauts + "x");
    const auto refusal = [](const auto& read) {
        try {
            read();
        } catch (const Problem& problem) {
            EXPECT_EQ(problem.status(), 422);
            return problem.body();
        }
        return Json();
    };
    std::string target;
    EXPECT_EQ(refusal([&] { fields.text("long"); }),
        Json({{"errors", {{"long", "Please shorten this to 255 characters."}}}}));
    EXPECT_EQ(refusal([&] { fields.text("novel", Fields::longText); }),
        Json({{"errors", {{"novel", "Please shorten this to 20000 characters."}}}}));
    EXPECT_TRUE(refusal([&] { fields.untrimmedText("long"); }).contains("errors"));
    EXPECT_TRUE(refusal([&] { fields.take({"long"}, target); }).contains("errors"));
    EXPECT_TRUE(refusal([&] { fields.texts("list"); }).contains("errors"));
}

TEST(Text, IsCleanWhereItComesIn)
{
    using namespace std::string_literals;
    struct
    {
        std::string sent;
        std::string kept;
    } const rows[] = {
        {"plain", "plain"},
        {"Zoë 😀 \x01", "Zoë 😀 \x01"},
        {"before\0after"s, "before\uFFFDafter"},
        {"\xff", "\uFFFD"},
        {"cut \xc3", "cut \uFFFD"},
        {"\xc0\x80 overlong", "\uFFFD\uFFFD overlong"},
        {"lone \xed\xa0\x80 surrogate", "lone \uFFFD\uFFFD\uFFFD surrogate"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(cleaned(row.sent), row.kept);
        EXPECT_EQ(cleaned(row.kept), row.kept) << "cleaning is done once";
    }
    EXPECT_EQ(jsonObject("{\"name\":\"a\\u0000b\"}").text("name"), "a\uFFFDb");
    EXPECT_EQ(jsonObject("{\"name\":\"a\xff\"}").text("name"), "a\uFFFD");
}

TEST(Fields, AnythingButAnObjectHasNone)
{
    for (const Json& value :
        {Json(), Json(1), Json("text"), Json::array({1}), Json::parse("{", nullptr, false)})
        EXPECT_EQ(Fields(value).text("text"), "");
}

TEST(JsonObject, IsReadDownToTheLastLevelThatAnybodyNeeds)
{
    const auto nested = [](std::size_t levels) {
        return "{\"data\":" + std::string(levels, '[') + std::string(levels, ']') + "}";
    };
    EXPECT_TRUE(jsonObject(nested(63)).has("data"));
    for (const std::size_t levels : {std::size_t(64), std::size_t(1000), std::size_t(131'600)})
        EXPECT_THROW(jsonObject(nested(levels)), Problem) << levels;
    std::string objects;
    for (int level = 0; level < 100; ++level)
        objects += "{\"data\":";
    EXPECT_THROW(jsonObject(objects + "1" + std::string(100, '}')), Problem);
}

TEST(EmailAddress, HasTwoPiecesAndADomain)
{
    for (const char* good : {"a@b.c", "first.last@example.com", "zoë@b.c"})
        EXPECT_TRUE(isEmailAddress(good)) << good;
    for (const char* bad : {"", "a@b", "@b.cd", "a@b@c.d", "ab.cd", "a.b@cd", "a@.", "@b.c", " a@b.c",
             "a b@c.de", "a@b.c\r\n", "<a@b.c>", "a@b.c\x7f"})
        EXPECT_FALSE(isEmailAddress(bad)) << bad;
}
