#include "AnswerReader.h"

#include <QList>

#include <gtest/gtest.h>

using Flaw = AnswerReader::Flaw;

namespace {

struct Row
{
    std::string name;
    QList<QByteArray> lines;
    std::optional<Flaw> want;
};

void PrintTo(const Row& row, std::ostream* out)
{
    *out << row.name;
}

constexpr qint64 limit = 1000;

} // namespace

class AnswerHead : public testing::TestWithParam<Row>
{ };

TEST_P(AnswerHead, IsReadOrRefused)
{
    AnswerReader reader(limit);
    bool wantsMore = reader.takeHeaderLine("HTTP/1.1 200 OK\r\n");
    for (const QByteArray& line : GetParam().lines)
        wantsMore = wantsMore && reader.takeHeaderLine(line);
    EXPECT_EQ(reader.flaw(), GetParam().want);
    EXPECT_EQ(wantsMore, !GetParam().want);
}

INSTANTIATE_TEST_SUITE_P(Of, AnswerHead,
    testing::Values(Row{"NoLines", {}, std::nullopt},
        Row{"Length", {"Content-Length: 1000\r\n"}, std::nullopt},
        Row{"LengthInAnyCase", {"CONTENT-LENGTH:1001\r\n"}, Flaw::TooLarge},
        Row{"LengthWithBlanks", {"content-length:\t 7 \r\n"}, std::nullopt},
        Row{"LengthTwice", {"Content-Length: 7\r\n", "Content-Length: 7\r\n"}, std::nullopt},
        Row{"TwoLengths", {"Content-Length: 7\r\n", "Content-Length: 8\r\n"}, Flaw::Broken},
        Row{"LengthList", {"Content-Length: 7, 7\r\n"}, Flaw::Broken},
        Row{"LengthWithSign", {"Content-Length: +7\r\n"}, Flaw::Broken},
        Row{"NegativeLength", {"Content-Length: -7\r\n"}, Flaw::Broken},
        Row{"NoLength", {"Content-Length:\r\n"}, Flaw::Broken},
        Row{"LengthBeyondAnyNumber", {"Content-Length: 99999999999999999999\r\n"}, Flaw::TooLarge},
        Row{"LengthsOfTwoHeads",
            {"Content-Length: 7\r\n", "\r\n", "HTTP/1.1 200 OK\r\n", "Content-Length: 8\r\n"}, std::nullopt},
        Row{"Chunked", {"Transfer-Encoding: Chunked\r\n"}, std::nullopt},
        Row{"Compressed", {"Transfer-Encoding: gzip, chunked\r\n"}, Flaw::Broken},
        Row{"FoldedCoding", {"Transfer-Encoding:\r\n", " gzip\r\n"}, Flaw::Broken},
        Row{"LongLine", {"X: " + QByteArray(300'000, 'x') + "\r\n"}, Flaw::Broken},
        Row{"ManyLines", QList<QByteArray>(100'000, "X: 1\r\n"), Flaw::Broken}),
    [](const auto& head) { return head.param.name; });

TEST(AnswerReaderTest, KnowsWhereTheHeadEnds)
{
    AnswerReader reader(limit);
    EXPECT_FALSE(reader.hasWholeHead());
    reader.takeHeaderLine("HTTP/1.1 103 Early Hints\r\n");
    EXPECT_FALSE(reader.hasWholeHead());
    reader.takeHeaderLine("\r\n");
    EXPECT_TRUE(reader.hasWholeHead());
    reader.takeHeaderLine("HTTP/1.1 200 OK\r\n");
    reader.takeHeaderLine("X: 1\r\n");
    EXPECT_FALSE(reader.hasWholeHead());
    reader.takeHeaderLine("\n");
    EXPECT_TRUE(reader.hasWholeHead());
}

TEST(AnswerReaderTest, TakesABodyUpToTheLimit)
{
    AnswerReader reader(limit);
    EXPECT_TRUE(reader.takeBody(QByteArray(999, 'x')));
    EXPECT_TRUE(reader.takeBody("x"));
    EXPECT_EQ(reader.body().size(), limit);
    EXPECT_FALSE(reader.takeBody("x"));
    EXPECT_EQ(reader.flaw(), Flaw::TooLarge);
}
