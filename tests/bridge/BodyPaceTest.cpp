#include "Net/BodyPace.h"

#include <gtest/gtest.h>

using namespace bridge;
using namespace std::chrono_literals;

namespace {

const SteadyMoment begin{1000h};

/// How long after its begin a body must go on that has brought so many bytes by then.
std::chrono::milliseconds patience(bool isText, std::uint64_t bytes, std::chrono::milliseconds after)
{
    BodyPace pace;
    if (isText)
        pace.expectText();
    pace.begin(begin);
    pace.count(bytes);
    return std::chrono::duration_cast<std::chrono::milliseconds>(pace.deadline(begin + after) - begin);
}

} // namespace

TEST(BodyPace, ATextHasHalfAMinuteHoweverMuchHasCome)
{
    EXPECT_EQ(patience(true, 0, 0s), 30s);
    EXPECT_EQ(patience(true, 1000, 29s), 30s);
    EXPECT_EQ(patience(true, 1 << 20, 29s), 30s);
}

TEST(BodyPace, AFileBringsAKibibyteASecondAfterItsFirstMinute)
{
    EXPECT_EQ(patience(false, 0, 40s), 60s);
    EXPECT_EQ(patience(false, 60 << 10, 59s), 60s);
    EXPECT_EQ(patience(false, 61 << 10, 59s), 61s);
    EXPECT_EQ(patience(false, 100 << 10, 80s), 100s);
}

TEST(BodyPace, NoBodyPausesForHalfAMinute)
{
    EXPECT_EQ(patience(false, 0, 10s), 40s);
    EXPECT_EQ(patience(false, 1 << 30, 100s), 130s);
}
