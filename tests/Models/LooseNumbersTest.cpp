#include "RemoteDocumentUpload.h"
#include "RemoteNotaryOption.h"
#include "Rows.h"
#include "SessionMessage.h"

using namespace Qt::StringLiterals;

// Numbers and flags of the records, in every form in which the bridge may send them.

namespace {

/// One form of a numeric field, its value, and whether it counts as true.
struct Form : Named
{
    QByteArray json;
    std::optional<qint64> number;
    bool isTrue = false;
};

class LooseNumber : public testing::TestWithParam<Form>
{
protected:
    static JSONObject holding(const QByteArray& key)
    {
        return jsonObject("{\"" + key + "\":" + GetParam().json + "}");
    }
};

TEST_P(LooseNumber, IsTheIdOfAMessageOrARandomOneStandsIn)
{
    const qint64 id = SessionMessage::fromRaw(holding("id")).id;
    if (GetParam().number) {
        EXPECT_EQ(id, *GetParam().number);
    } else {
        EXPECT_GE(id, 1'000'000);
        EXPECT_LE(id, 9'999'999);
    }
}

TEST_P(LooseNumber, IsTheIdOfANotaryUnderEitherKeyOrZeroStandsIn)
{
    EXPECT_EQ(RemoteNotaryOption::fromRaw(holding("id")).id, GetParam().number.value_or(0));
    EXPECT_EQ(RemoteNotaryOption::fromRaw(holding("notary_id")).id, GetParam().number.value_or(0));
    const QByteArray both = R"({"notary_id":5,"id":)" + GetParam().json + "}";
    EXPECT_EQ(RemoteNotaryOption::fromRaw(jsonObject(both)).id, GetParam().number.value_or(5));
}

TEST_P(LooseNumber, IsTheUserOfANotaryOrNobody)
{
    EXPECT_EQ(RemoteNotaryOption::fromRaw(holding("user_id")).userId, GetParam().number);
}

TEST_P(LooseNumber, TellsWhetherANotaryIsActive)
{
    EXPECT_EQ(RemoteNotaryOption::fromRaw(holding("active")).active, GetParam().isTrue);
    EXPECT_EQ(RemoteNotaryOption::fromRaw(holding("is_active")).active, GetParam().isTrue);
    const QByteArray both = R"({"active":false,"is_active":)" + GetParam().json + "}";
    EXPECT_EQ(RemoteNotaryOption::fromRaw(jsonObject(both)).active, GetParam().isTrue);
    const QByteArray other = R"({"is_active":false,"active":)" + GetParam().json + "}";
    EXPECT_EQ(RemoteNotaryOption::fromRaw(jsonObject(other)).active, GetParam().isTrue);
}

TEST_P(LooseNumber, IsTheSizeOfADocumentWhenAtLeastOne)
{
    const QString detail = RemoteDocumentUpload{1, holding("file_size")}.displayDetail();
    EXPECT_EQ(detail.contains(u" • "_s), GetParam().number.value_or(0) >= 1);
}

INSTANTIATE_TEST_SUITE_P(Forms, LooseNumber,
    testing::Values(Form{{"Integer"}, "42", 42, true}, Form{{"One"}, "1", 1, true},
        Form{{"Zero"}, "0", 0, false}, Form{{"Negative"}, "-3", -3, true},
        Form{{"Fraction"}, "12.9", 12, false}, Form{{"SmallFraction"}, "0.9", 0, false},
        Form{{"Digits"}, R"("2048")", 2048, false}, Form{{"DigitOne"}, R"("1")", 1, true},
        Form{{"LeadingBlank"}, R"(" 2048")", {}, false}, Form{{"Plus"}, R"("+7")", 7, false},
        Form{{"Largest"}, "9223372036854775807", 9223372036854775807, true},
        Form{{"OverflowingText"}, R"("9223372036854775808")", {}, false},
        Form{{"Word"}, R"("seven")", {}, false}, Form{{"Yes"}, R"("YES")", {}, true},
        Form{{"On"}, R"("on")", {}, true}, Form{{"TrueWord"}, R"("True")", {}, true},
        Form{{"LetterY"}, R"("y")", {}, false}, Form{{"NullWord"}, R"("null")", {}, false},
        Form{{"Nan"}, R"("nan")", {}, false}, Form{{"Empty"}, R"("")", {}, false},
        Form{{"Null"}, "null", {}, false}, Form{{"True"}, "true", {}, true},
        Form{{"False"}, "false", {}, false}, Form{{"List"}, "[1]", {}, false},
        Form{{"Object"}, R"({"id":1})", {}, false}),
    RowName());

TEST(LooseNumbersDeathTest, EndTheProgramOnlyBeyondTheIntegers)
{
    const JSONObject message = jsonObject(R"({"id":1e300})");
    EXPECT_DEATH(SessionMessage::fromRaw(message), "64-bit range");
    const RemoteDocumentUpload document{1, jsonObject(R"({"file_size":18446744073709551616})")};
    EXPECT_DEATH(document.displayDetail(), "64-bit range");
}

} // namespace
