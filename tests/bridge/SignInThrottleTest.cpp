#include "People/SignInThrottle.h"

#include <gtest/gtest.h>

using namespace bridge;
using namespace std::chrono_literals;

namespace {

class SignInThrottleTest : public testing::Test
{
protected:
    void fail(int times)
    {
        for (int i = 0; i < times; ++i)
            EXPECT_TRUE(throttle.admit("a@b.cd")) << i;
    }

    Moment now{1000h};
    SignInThrottle throttle{[this] { return now; }};
};

} // namespace

TEST_F(SignInThrottleTest, EachFurtherFailureWaitsTwiceAsLongUpToHalfAMinute)
{
    fail(5);
    for (const std::chrono::milliseconds delay : {1s, 2s, 4s, 8s, 16s, 30s, 30s, 30s}) {
        EXPECT_FALSE(throttle.admit("a@b.cd"));
        now += delay - 1ms;
        EXPECT_FALSE(throttle.admit("A@B.cd")) << "whatever the capitals";
        now += 1ms;
        EXPECT_TRUE(throttle.admit("a@b.cd"));
    }
}

TEST_F(SignInThrottleTest, AnAttemptThatIsNotLookedAtDoesNotCount)
{
    fail(5);
    for (int i = 0; i < 100; ++i)
        EXPECT_FALSE(throttle.admit("a@b.cd"));
    now += 1s;
    EXPECT_TRUE(throttle.admit("a@b.cd"));
}

TEST_F(SignInThrottleTest, SuccessAndTimeForget)
{
    fail(5);
    throttle.succeeded("a@b.cd");
    fail(5);
    now += 15min + 1ms;
    fail(5);
}

TEST_F(SignInThrottleTest, OthersAreNotAffectedHoweverMany)
{
    fail(5);
    for (int i = 0; i < 20'000; ++i)
        EXPECT_TRUE(throttle.admit(std::to_string(i)));
}
