#include "RenewalSchedule.h"

#include "Models/Rows.h"
#include "support/SetClock.h"

#include <gtest/gtest.h>

using namespace std::chrono_literals;

namespace {

class RenewalScheduleTest : public testing::Test
{
protected:
    RenewalScheduleTest()
    {
        QObject::connect(&schedule, &RenewalSchedule::due, [this] { ++dues; });
    }

    SetClock clock;
    RenewalSchedule schedule{clock};
    int dues = 0;
};

struct LifetimeRow : Named
{
    std::chrono::seconds lifetime;
    SleepProofClock::Duration renewedAfter;
};

class Lifetimes : public RenewalScheduleTest, public testing::WithParamInterface<LifetimeRow>
{ };

TEST_P(Lifetimes, EndAfterTheRenewal)
{
    const LifetimeRow& row = GetParam();
    schedule.begin(row.lifetime);
    clock.pass(row.renewedAfter - 1ms);
    EXPECT_EQ(dues, 0);
    clock.pass(1ms);
    EXPECT_EQ(dues, 1);
    EXPECT_FALSE(schedule.hasTokenEnded());
    clock.pass(row.lifetime - row.renewedAfter);
    EXPECT_TRUE(schedule.hasTokenEnded());
    EXPECT_EQ(dues, 1) << "whoever renews says what comes next";
}

INSTANTIATE_TEST_SUITE_P(Told, Lifetimes,
    testing::Values(LifetimeRow{{"AnHour"}, 3600s, 3300s}, LifetimeRow{{"ADay"}, 24h, 24h - 5min},
        LifetimeRow{{"TenMinutes"}, 10min, 5min}, LifetimeRow{{"FiveMinutes"}, 5min, 150s},
        LifetimeRow{{"TwentySeconds"}, 20s, 10s}, LifetimeRow{{"ASecond"}, 1s, 500ms}),
    RowName());

TEST_F(RenewalScheduleTest, TriesAgainAtLengtheningIntervals)
{
    schedule.begin(1h);
    for (const auto pause : {1min, 2min, 4min, 5min, 5min, 5min}) {
        schedule.postpone();
        EXPECT_EQ(clock.untilAlarm(), pause);
    }
    schedule.begin(1h);
    schedule.postpone();
    EXPECT_EQ(clock.untilAlarm(), 1min) << "a token that has come begins anew";
}

TEST_F(RenewalScheduleTest, RingsOnceHoweverLongTheMachineSlept)
{
    schedule.begin(1h);
    clock.pass(10h);
    EXPECT_EQ(dues, 1);
    EXPECT_TRUE(schedule.hasTokenEnded());
}

TEST_F(RenewalScheduleTest, TimesNothingForNobody)
{
    EXPECT_FALSE(clock.untilAlarm());
    EXPECT_FALSE(schedule.hasTokenEnded());
    schedule.begin(1h);
    schedule.end();
    EXPECT_FALSE(clock.untilAlarm());
    clock.pass(10h);
    EXPECT_FALSE(schedule.hasTokenEnded());
    EXPECT_EQ(dues, 0);
}

} // namespace
