#include "JSONScan.h"

#include "Rows.h"
#include "support/PeakMemory.h"

#include <QJsonDocument>

namespace {

using Flaw = JSONScan::Flaw;

/// What a document costs by its lists and objects, and by its values and names.
constexpr qint64 costOf(qint64 containers, qint64 values)
{
    return containers * JSONScan::costOfContainer + values * JSONScan::costOfValue;
}

struct CostRow : Named
{
    QByteArray json;
    qint64 cost;
};

class JSONCost : public testing::TestWithParam<CostRow>
{ };

TEST_P(JSONCost, CountsContainersAndWhatTheyHold)
{
    const JSONScan scan(GetParam().json);
    EXPECT_EQ(scan.flaw(), Flaw::none);
    EXPECT_EQ(scan.cost(), GetParam().cost);
}

INSTANTIATE_TEST_SUITE_P(Documents, JSONCost,
    testing::Values(CostRow{{"Empty"}, "", 0}, CostRow{{"Blank"}, " \t\r\n", 0},
        // An empty list or object is counted as if it held one value.
        CostRow{{"EmptyList"}, "[]", costOf(1, 1)}, CostRow{{"EmptyObject"}, "{}", costOf(1, 1)},
        CostRow{{"OneValue"}, "[7]", costOf(1, 1)}, CostRow{{"ThreeValues"}, "[1, null ,true]", costOf(1, 3)},
        CostRow{{"OneMember"}, R"({"a":1})", costOf(1, 2)},
        CostRow{{"TwoMembers"}, R"({"a":"b","c":false})", costOf(1, 4)},
        CostRow{{"ListOfLists"}, "[[],[]]", costOf(3, 4)},
        CostRow{{"Records"}, R"([{"id":1},{"id":2}])", costOf(3, 6)},
        CostRow{{"BracketsInAText"}, R"(["[[{,:}]]"])", costOf(1, 1)},
        CostRow{{"BracketsInAName"}, R"({"[,:{":1})", costOf(1, 2)},
        CostRow{{"QuoteInAText"}, R"(["a\",[b",2])", costOf(1, 2)},
        CostRow{{"BackslashAtTheEndOfAText"}, R"(["a\\",[2]])", costOf(2, 3)},
        CostRow{{"UnicodeEscape"}, R"(["\u005B\u002C"])", costOf(1, 1)},
        CostRow{{"LongText"}, "[\"" + QByteArray(1'000, ',') + "\"]", costOf(1, 1)},
        CostRow{{"NotAscii"}, "[\"\u00E9,\U0001F600\",1]", costOf(1, 2)},
        CostRow{{"ByteOrderMark"}, "\xEF\xBB\xBF[1]", costOf(1, 1)},
        CostRow{{"CutShort"}, "[[1,", costOf(2, 3)}),
    RowName());

/// A text of every length around the stride in which texts are read, with something behind each of its bytes.
TEST(JSONScan, FindsWhatEndsATextAtEveryPlace)
{
    for (int length = 0; length < 40; ++length) {
        for (int place = 0; place <= length; ++place) {
            const auto with = [&](const QByteArray& bytes) {
                return JSONScan("[\"" + QByteArray(length, 'a').insert(place, bytes) + "\"]").flaw();
            };
            EXPECT_EQ(with({}), Flaw::none) << length << ' ' << place;
            EXPECT_EQ(with("\x7F"), Flaw::none) << length << ' ' << place;
            EXPECT_EQ(with("\u0120"), Flaw::none) << length << ' ' << place;
            EXPECT_EQ(with(R"(\")"), Flaw::none) << length << ' ' << place;
            EXPECT_EQ(with("\\"), Flaw::malformed) << length << ' ' << place;
            EXPECT_EQ(with("\x1F"), Flaw::malformed) << length << ' ' << place;
            EXPECT_EQ(with(QByteArray(1, '\0')), Flaw::malformed) << length << ' ' << place;
        }
    }
}

TEST(JSONScan, FindsNumbersThatMayBeTooLong)
{
    const JSONScan scan("[999999999999999999,1234567890123456789, -12345678901234567890,"
                        "12345678901234567890.5,12345678901234567890e1,\"12345678901234567890\"]");
    EXPECT_EQ(scan.flaw(), Flaw::none);
    EXPECT_EQ(scan.longIntegers(), (QList<JSONScan::Span>{{20, 39}, {41, 62}}));
}

/// A list of as many copies as make it so large.
QByteArray listOf(const QByteArray& element, qint64 size)
{
    const QByteArray joined = element + ',';
    return '[' + joined.repeated(size / joined.size() - 1) + element + ']';
}

constexpr qint64 mebibyte = 1024 * 1024;

struct ElementRow : Named
{
    QByteArray element;
};

class JSONMemory : public testing::TestWithParam<ElementRow>
{ };

/// 250 MiB of these take 6 to 9 GiB when they are parsed.
TEST_P(JSONMemory, StaysWithTheDocumentWhereValuesWouldTakeTooMuch)
{
    const QByteArray json = listOf(GetParam().element, 250 * mebibyte);
    ASSERT_EQ(JSONScan(json).flaw(), Flaw::tooCostly);
    if (!PeakMemory::forget())
        GTEST_SKIP() << "the system does not let a process measure itself anew";
    const qint64 before = PeakMemory::bytes();
    EXPECT_FALSE(JSONValue::parse(json));
    EXPECT_LT(PeakMemory::bytes() - before, 16 * mebibyte);
}

INSTANTIATE_TEST_SUITE_P(Documents, JSONMemory,
    testing::Values(ElementRow{{"Lists"}, "[[]]"}, ElementRow{{"Objects"}, R"({"id":1})"}), RowName());

class JSONMemoryCount : public testing::TestWithParam<ElementRow>
{ };

TEST_P(JSONMemoryCount, IsEnough)
{
    if (PeakMemory::kept > 0)
        GTEST_SKIP() << "a sanitizer's allocations are larger";
    const QByteArray json = listOf(GetParam().element, 4 * mebibyte);
    const JSONScan scan(json);
    ASSERT_EQ(scan.flaw(), Flaw::none);
    if (!PeakMemory::forget())
        GTEST_SKIP() << "the system does not let a process measure itself anew";
    const qint64 before = PeakMemory::bytes();
    const QJsonDocument document = QJsonDocument::fromJson(json);
    EXPECT_LT(PeakMemory::bytes() - before, scan.cost() + mebibyte);
}

INSTANTIATE_TEST_SUITE_P(Documents, JSONMemoryCount,
    testing::Values(ElementRow{{"Lists"}, "[[]]"}, ElementRow{{"Objects"}, R"({"id":1})"},
        ElementRow{{"Numbers"}, "[1,2,3]"}, ElementRow{{"ShortTexts"}, R"({"a":"b"})"},
        ElementRow{{"ManyTexts"}, R"(["a","b","c","d","e","f","g","h","i"])"}),
    RowName());

/// Twice the longest list that the program is made for.
TEST(JSONScan, LetsALongListOfWideRecordsPass)
{
    constexpr int fields = 40;
    constexpr int records = 200'000;
    const QByteArray member = R"("field_name":"the value")";
    const QByteArray record = '{' + QByteArray(member + ',').repeated(fields - 1) + member + "},";
    EXPECT_LT(JSONScan(record).cost() * records, JSONScan::largestCost);
}

} // namespace
