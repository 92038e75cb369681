#include "AppError.h"
#include "Models/Rows.h"
#include "RequestPipeline.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

JSONValue value(const QByteArray& text)
{
    const std::optional<JSONValue> parsed = JSONValue::parse(text);
    if (!parsed)
        qFatal("no JSON: %s", text.constData());
    return *parsed;
}

struct ListRow : Named
{
    QByteArray answer;
    QByteArray expected; ///< the records as a JSON list
};

class NormalizeArray : public testing::TestWithParam<ListRow>
{ };

TEST_P(NormalizeArray, FindsTheRecords)
{
    EXPECT_EQ(normalizeArray(value(GetParam().answer)), value(GetParam().expected).objects().value());
}

INSTANTIATE_TEST_SUITE_P(Answers, NormalizeArray,
    testing::Values(
        // clang-format off
        ListRow{{"ListItself"}, R"([{"id":1},{"id":2}])", R"([{"id":1},{"id":2}])"},
        ListRow{{"EmptyList"}, "[]", "[]"},
        ListRow{{"EmptyObject"}, "{}", "[]"},
        ListRow{{"MixedList"}, R"([{"id":1},2])", "[]"},
        ListRow{{"ListOfTexts"}, R"(["a"])", "[]"},
        ListRow{{"UnknownKey"}, R"({"items":[{"id":1}]})", "[]"},
        ListRow{{"Data"}, R"({"data":[{"id":1}]})", R"([{"id":1}])"},
        ListRow{{"Sessions"}, R"({"sessions":[{"id":1}]})", R"([{"id":1}])"},
        ListRow{{"Messages"}, R"({"messages":[{"id":1}]})", R"([{"id":1}])"},
        ListRow{{"Documents"}, R"({"documents":[{"id":1}]})", R"([{"id":1}])"},
        ListRow{{"Uploads"}, R"({"uploads":[{"id":1}]})", R"([{"id":1}])"},
        ListRow{{"Records"}, R"({"records":[{"id":1}]})", R"([{"id":1}])"},
        ListRow{{"Users"}, R"({"users":[{"id":1}]})", R"([{"id":1}])"},
        ListRow{{"Notaries"}, R"({"notaries":[{"id":1}]})", R"([{"id":1}])"},
        ListRow{{"Clients"}, R"({"clients":[{"id":1}]})", R"([{"id":1}])"},
        ListRow{{"Assignments"}, R"({"assignments":[{"id":1}]})", R"([{"id":1}])"},
        ListRow{{"OpenCalls"}, R"({"open_calls":[{"id":1}]})", R"([{"id":1}])"},
        ListRow{{"MixedUnderKeyIsSkipped"}, R"({"data":[{"id":1},null],"users":[{"id":2}]})", R"([{"id":2}])"},
        ListRow{{"ObjectUnderKeyIsSkipped"}, R"({"data":{"id":1},"open_calls":[{"id":2}]})", R"([{"id":2}])"},
        ListRow{{"EmptyUnderKeyCounts"}, R"({"data":[],"users":[{"id":2}]})", "[]"},
        ListRow{{"NotLookedForDeeper"}, R"({"data":{"sessions":[{"id":1}]}})", "[]"} // clang-format on
        ),
    RowName());

TEST(NormalizeArrayTest, TriesTheKeysInTheirOrder)
{
    const QStringList keys{u"data"_s, u"sessions"_s, u"messages"_s, u"documents"_s, u"uploads"_s,
        u"records"_s, u"users"_s, u"notaries"_s, u"clients"_s, u"assignments"_s, u"open_calls"_s};
    for (qsizetype earlier = 0; earlier < keys.size(); ++earlier) {
        for (qsizetype later = earlier + 1; later < keys.size(); ++later) {
            const QString both
                = u"{\"%1\":[{\"id\":2}],\"%2\":[{\"id\":1}]}"_s.arg(keys[later], keys[earlier]);
            const QList<JSONObject> records = normalizeArray(value(both.toUtf8()));
            ASSERT_EQ(records.size(), 1);
            EXPECT_EQ(records.first().intValue(u"id"_s), 1) << both.toStdString();
        }
    }
}

struct ObjectRow : Named
{
    QByteArray answer;
    QByteArray expected;
};

class UnwrappedObject : public testing::TestWithParam<ObjectRow>
{ };

TEST_P(UnwrappedObject, IsTheFirstInnerObjectOrTheWhole)
{
    EXPECT_EQ(unwrappedObject(value(GetParam().answer)), value(GetParam().expected).object());
    EXPECT_EQ(wholeObject(value(GetParam().answer)), value(GetParam().answer).object());
}

INSTANTIATE_TEST_SUITE_P(Answers, UnwrappedObject,
    testing::Values(
        // clang-format off
        ObjectRow{{"Data"}, R"({"data":{"id":5},"session":{"id":6},"user":{"id":7}})", R"({"id":5})"},
        ObjectRow{{"Session"}, R"({"user":{"id":7},"session":{"id":6}})", R"({"id":6})"},
        ObjectRow{{"User"}, R"({"user":{"id":7}})", R"({"id":7})"},
        ObjectRow{{"EmptyData"}, R"({"data":{},"session":{"id":6}})", "{}"},
        ObjectRow{{"DataIsAList"}, R"({"data":[{"id":5}],"user":{"id":7}})", R"({"id":7})"},
        ObjectRow{{"DataIsNull"}, R"({"data":null,"id":3})", R"({"data":null,"id":3})"},
        ObjectRow{{"Whole"}, R"({"id":3})", R"({"id":3})"},
        ObjectRow{{"Empty"}, "{}", "{}"} // clang-format on
        ),
    RowName());

TEST(UnwrappedObjectTest, RefusesAList)
{
    for (const QByteArray& answer : {QByteArray("[]"), QByteArray(R"([{"id":1}])")}) {
        EXPECT_THROW(wholeObject(value(answer)), AppError);
        try {
            unwrappedObject(value(answer));
            ADD_FAILURE();
        } catch (const AppError& error) {
            EXPECT_EQ(error.message(), u"We could not complete that request. Please try again."_s);
        }
    }
}

struct MessageRow : Named
{
    QByteArray answer;
    std::optional<QString> expected;
};

class ParseServerMessage : public testing::TestWithParam<MessageRow>
{ };

TEST_P(ParseServerMessage, FindsTheServersOwnWords)
{
    EXPECT_EQ(parseServerMessage(value(GetParam().answer)), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Answers, ParseServerMessage,
    testing::Values(
        // clang-format off
        MessageRow{{"Message"}, R"({"message":"m","error":"e","code":"c"})", u"m"_s},
        MessageRow{{"EmptyMessageCounts"}, R"({"message":"","error":"e"})", u""_s},
        MessageRow{{"MessageIsANumber"}, R"({"message":4,"error":"e"})", u"e"_s},
        MessageRow{{"MessageIsNull"}, R"({"message":null,"error":"e"})", u"e"_s},
        MessageRow{{"EmptyErrorCounts"}, R"({"error":"","code":"c"})", u""_s},
        MessageRow{{"ErrorIsAnObject"}, R"({"error":{"message":"inner"},"code":"c"})", u"c"_s},
        MessageRow{{"Code"}, R"({"code":"c","errors":{"a":"b"}})", u"c"_s},
        MessageRow{{"EmptyCodeDoesNotCount"}, R"({"code":"","errors":{"a":"b"}})", u"b"_s},
        MessageRow{{"CodeIsANumber"}, R"({"code":7})", std::nullopt},
        MessageRow{{"OneError"}, R"({"errors":{"email":"taken"}})", u"taken"_s},
        MessageRow{{"SeveralErrors"}, R"({"errors":{"email":"taken","phone":"too short"}})", u"taken\ntoo short"_s},
        MessageRow{{"ErrorsOfOtherTypes"}, R"({"errors":{"a":7,"b":true,"c":["x","y"],"d":1.5}})", u"7\ntrue\n[\"x\",\"y\"]\n1.5"_s},
        MessageRow{{"EmptyErrors"}, R"({"errors":{}})", u""_s},
        MessageRow{{"ErrorsIsAList"}, R"({"errors":["taken"]})", std::nullopt},
        MessageRow{{"Empty"}, "{}", std::nullopt},
        MessageRow{{"List"}, R"([{"message":"m"}])", std::nullopt} // clang-format on
        ),
    RowName());

struct TextRow : Named
{
    QString text;
    QString expected;
};

class CleanServerText : public testing::TestWithParam<TextRow>
{ };

TEST_P(CleanServerText, IsFitToShow)
{
    EXPECT_EQ(cleanServerText(GetParam().text), GetParam().expected);
}

const QString ended = u"Your session ended. Please sign in again."_s;
const QString support = u"We could not complete that request. Please try again or contact support."_s;
const QString general = u"We could not complete that request. Please try again."_s;

INSTANTIATE_TEST_SUITE_P(Texts, CleanServerText,
    testing::Values(
        // clang-format off
        TextRow{{"Plain"}, u"No such City"_s, u"No such City"_s},
        TextRow{{"Trimmed"}, u" \t\r\nTry later \n"_s, u"Try later"_s},
        TextRow{{"Empty"}, u""_s, general},
        TextRow{{"Blank"}, u" \n\t "_s, general},
        TextRow{{"Firebase"}, u"FireBase is down"_s, ended},
        TextRow{{"Token"}, u"TOKEN too old"_s, ended},
        TextRow{{"Jwt"}, u"bad JWT"_s, ended},
        TextRow{{"Bearer"}, u"no Bearer"_s, ended},
        TextRow{{"TokenWithinHtml"}, u"<html>token</html>"_s, ended},
        TextRow{{"HtmlPage"}, u"<!DOCTYPE HTML><body>502</body>"_s, support},
        TextRow{{"LineBreakTag"}, u"Warning<BR />in line 3"_s, support},
        TextRow{{"FatalError"}, u"Fatal error: out of memory"_s, support},
        TextRow{{"FatalErrorInside"}, u"PHP FATAL ERROR"_s, support},
        TextRow{{"SessionIsJustAWord"}, u"Session not found"_s, u"Session not found"_s},
        TextRow{{"Endless"}, QString(1'000'000, u'x'), QString(262'144, u'x')},
        TextRow{{"TokenBehindAnEndlessText"}, QString(1'000'000, u'x') + u" token"_s, ended},
        TextRow{{"AuthorizationIsJustAWord"}, u"Authorization missing"_s, u"Authorization missing"_s}
        // clang-format on
        ),
    RowName());

} // namespace
