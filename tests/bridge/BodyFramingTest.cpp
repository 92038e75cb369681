#include "Net/BodyFraming.h"

#include <gtest/gtest.h>

#include <string>

using namespace bridge;
using namespace std::string_literals;

namespace {

struct Outcome
{
    std::string body;
    bool isRight = true;
    bool isOver = false;
    std::size_t taken = 0;
};

Outcome readBody(BodyFraming framing, const std::string& sent)
{
    Outcome outcome;
    while (outcome.taken < sent.size() && !framing.isOver() && outcome.isRight) {
        const char byte = sent[outcome.taken++];
        if (framing.dataLeft() > 0) {
            outcome.body += byte;
            framing.passOver(1);
        } else {
            outcome.isRight = framing.take(byte);
        }
    }
    outcome.isOver = framing.isOver();
    return outcome;
}

Outcome readChunks(const std::string& sent)
{
    return readBody(BodyFraming(std::nullopt), sent);
}

} // namespace

TEST(BodyFraming, AStatedLengthEndsTheBodyThere)
{
    const Outcome outcome = readBody(BodyFraming(3), "abcGET");
    EXPECT_EQ(outcome.body, "abc");
    EXPECT_TRUE(outcome.isOver);
    EXPECT_EQ(outcome.taken, 3u);
    EXPECT_FALSE(readBody(BodyFraming(3), "ab").isOver);
    EXPECT_TRUE(BodyFraming(0).isOver());
}

TEST(BodyFraming, ChunksAreReadInAllTheirForms)
{
    const std::string forms[] = {"3\r\nabc\r\n0\r\n\r\n", "1\r\na\r\n2\r\nbc\r\n00\r\n\r\n",
        "003;name=\"value\"\r\nabc\r\n0;last\r\n\r\n", "3\r\nabc\r\n0\r\nTrailer: a\r\nOther: b\r\n\r\n"};
    for (const std::string& form : forms) {
        const Outcome outcome = readChunks(form + "GET");
        EXPECT_TRUE(outcome.isRight && outcome.isOver) << form;
        EXPECT_EQ(outcome.body, "abc") << form;
        EXPECT_EQ(outcome.taken, form.size()) << form;
    }
    EXPECT_EQ(readChunks("1A\r\n" + std::string(26, 'x')).body.size(), 26u);
    EXPECT_EQ(readChunks("a\r\n" + std::string(10, 'x')).body.size(), 10u);
}

TEST(BodyFraming, WhatIsNoChunkIsRefused)
{
    const std::string forms[] = {"\r\n", ";a\r\n", "g\r\n", "-1\r\n", "+1\r\n", " 1\r\n", "0x1\r\n", "1 \r\n",
        "1\n", "1\r\r\n", "1;a\n", "1;a\0b\r\n"s, "10000000000000000\r\n", "ffffffffffffffff0\r\n", "1\r\nab",
        "1\r\na\n", "1\r\na\rb", "0\r\n\n", "0\r\n\rx", "0\r\nA: b\n", "0\r\nA: b\rC", "0\r\nA: \x01\r\n"};
    for (const std::string& form : forms)
        EXPECT_FALSE(readChunks(form).isRight) << testing::PrintToString(form);
    EXPECT_TRUE(readChunks("ffffffffffffffff\r\n").isRight);
}

TEST(BodyFraming, WhatFramesABodyHasBounds)
{
    const std::string size = "1;" + std::string(1021, 'x');
    EXPECT_TRUE(readChunks(size + "\r\na\r\n" + size + "\r\na\r\n0\r\n\r\n").isOver);
    EXPECT_FALSE(readChunks(size + "x\r\n").isRight);
    EXPECT_FALSE(readChunks(std::string(1025, '0')).isRight);

    const auto trailers = [](int count, std::size_t length) {
        std::string text = "0\r\n";
        for (int i = 0; i < count; ++i)
            text += std::string(length, 'x') + "\r\n";
        return text + "\r\n";
    };
    EXPECT_TRUE(readChunks(trailers(64, 100)).isOver);
    EXPECT_FALSE(readChunks(trailers(65, 1)).isRight);
    EXPECT_TRUE(readChunks(trailers(1, 8000)).isOver);
    EXPECT_FALSE(readChunks(trailers(1, 8192)).isRight);
}
