#include "People/SignInThrottle.h"

#include "People/RegistrationThrottle.h"

#include <gtest/gtest.h>

using namespace bridge;
using namespace std::chrono_literals;

namespace {

constexpr const char* address = "a@b.cd";
constexpr const char* peer = "192.0.2.1";

class SignInThrottleTest : public testing::Test
{
protected:
    void fail(int times, const std::string& from = peer)
    {
        for (int i = 0; i < times; ++i)
            EXPECT_TRUE(throttle.admit(address, from)) << i;
    }

    SteadyMoment now{1000h};
    SignInThrottle throttle{[this] { return now; }};
};

} // namespace

TEST_F(SignInThrottleTest, EachFurtherFailureWaitsTwiceAsLongUpToHalfAMinute)
{
    fail(5);
    for (const std::chrono::milliseconds delay : {1s, 2s, 4s, 8s, 16s, 30s, 30s, 30s}) {
        EXPECT_FALSE(throttle.admit(address, peer));
        now += delay - 1ms;
        EXPECT_FALSE(throttle.admit("A@B.cd", peer)) << "whatever the capitals";
        now += 1ms;
        EXPECT_TRUE(throttle.admit(address, peer));
    }
}

TEST_F(SignInThrottleTest, AnAttemptThatIsNotLookedAtDoesNotCount)
{
    fail(5);
    for (int i = 0; i < 100; ++i)
        EXPECT_FALSE(throttle.admit(address, peer));
    now += 1s;
    EXPECT_TRUE(throttle.admit(address, peer));
}

TEST_F(SignInThrottleTest, SuccessAndTimeForget)
{
    fail(5);
    throttle.succeeded(address, peer);
    fail(5);
    now += 15min + 1ms;
    fail(5);
}

TEST_F(SignInThrottleTest, OthersAreNotAffectedHoweverMany)
{
    fail(5);
    for (int i = 0; i < 20'000; ++i)
        EXPECT_TRUE(throttle.admit(std::to_string(i), peer));
}

TEST_F(SignInThrottleTest, AStrangersFailuresDoNotHoldUpTheOwner)
{
    fail(5);
    EXPECT_FALSE(throttle.admit(address, peer));
    EXPECT_TRUE(throttle.admit(address, "192.0.2.2"));
}

TEST_F(SignInThrottleTest, ManyPeersTogetherAreSlowedDownAsOne)
{
    for (int i = 0; i < 10; ++i)
        fail(5, "192.0.2." + std::to_string(i));
    for (const std::chrono::milliseconds delay : {1s, 2s, 4s, 8s, 16s, 30s, 30s}) {
        EXPECT_FALSE(throttle.admit(address, "198.51.100.1"));
        now += delay;
        EXPECT_TRUE(throttle.admit(address, "198.51.100." + std::to_string(delay.count())));
        throttle.admit("another@b.cd", "198.51.100.1");
    }
}

TEST_F(SignInThrottleTest, ASuccessForgivesOnlyItsOwnPeer)
{
    for (int i = 0; i < 9; ++i)
        fail(5, "192.0.2." + std::to_string(i));
    fail(4, "198.51.100.1");
    throttle.succeeded(address, "198.51.100.1");
    fail(5, "198.51.100.2");
    EXPECT_FALSE(throttle.admit(address, "198.51.100.1"))
        << "forty-five failures of others were left, and five more";
}

TEST_F(SignInThrottleTest, AFloodOfNamesClearsNobodysFailures)
{
    fail(5);
    for (int i = 0; i < 30'000; ++i)
        throttle.admit("made-up-" + std::to_string(i), peer);
    EXPECT_FALSE(throttle.admit(address, peer));
}

TEST_F(SignInThrottleTest, AccountsAreCountedBesideAddresses)
{
    const Id account = 7;
    for (int i = 0; i < 5; ++i)
        EXPECT_TRUE(throttle.admit(account, peer));
    EXPECT_FALSE(throttle.admit(account, peer));
    EXPECT_TRUE(throttle.admit(account, "192.0.2.2"));
    EXPECT_TRUE(throttle.admit(Id(8), peer));
    EXPECT_TRUE(throttle.admit("account 7", peer)) << "an address that reads like an account is none";
    now += 1s;
    EXPECT_TRUE(throttle.admit(account, peer));
    throttle.succeeded(account, peer);
    EXPECT_TRUE(throttle.admit(account, peer));
}

TEST(RegistrationThrottle, LetsAPeerOpenSoManyAccountsInAnHour)
{
    SteadyMoment now{1000h};
    RegistrationThrottle throttle([&now] { return now; }, 3);
    for (int hour = 0; hour < 3; ++hour) {
        for (int i = 0; i < 3; ++i) {
            EXPECT_TRUE(throttle.admit(peer));
            now += 1min;
        }
        EXPECT_FALSE(throttle.admit(peer));
        EXPECT_TRUE(throttle.admit("192.0.2." + std::to_string(hour + 2)));
        now += 57min;
        EXPECT_FALSE(throttle.admit(peer));
        now += 1ms;
    }
}
