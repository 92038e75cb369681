#include "SleepProofClock.h"
#include "support/Await.h"

#include <QDir>

#include <gtest/gtest.h>

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace {

class BootClockTest : public testing::Test
{
protected:
    BootClockTest()
    {
        QObject::connect(&clock, &SleepProofClock::rang, [this] { ++rings; });
    }

    static qsizetype openFiles()
    {
        return QDir(u"/proc/self/fd"_s).entryList(QDir::Files | QDir::System).size();
    }

    /// Lets everything ring that was to ring before now.
    static void waitForAnother()
    {
        BootClock other;
        bool rang = false;
        QObject::connect(&other, &SleepProofClock::rang, [&rang] { rang = true; });
        other.setAlarm(3ms);
        runUntil([&rang] { return rang; });
    }

    BootClock clock;
    int rings = 0;
};

TEST_F(BootClockTest, GoesOn)
{
    const auto before = clock.now();
    EXPECT_GT(before, 0ms);
    waitForAnother();
    EXPECT_GE(clock.now() - before, 3ms);
}

TEST_F(BootClockTest, RingsOnceAndNotBeforeItsTime)
{
    const auto before = clock.now();
    clock.setAlarm(2ms);
    runUntil([this] { return rings > 0; });
    EXPECT_GE(clock.now() - before, 2ms);
    waitForAnother();
    EXPECT_EQ(rings, 1);
}

TEST_F(BootClockTest, RingsForATimeThatIsOverAlready)
{
    for (const auto after : {0ms, -5ms}) {
        rings = 0;
        clock.setAlarm(after);
        runUntil([this] { return rings > 0; });
        EXPECT_EQ(rings, 1);
    }
}

TEST_F(BootClockTest, OnlyTheAlarmThatWasSetLastRings)
{
    clock.setAlarm(1h);
    clock.setAlarm(1ms);
    runUntil([this] { return rings > 0; });
    clock.setAlarm(1ms);
    clock.setAlarm(1h);
    waitForAnother();
    EXPECT_EQ(rings, 1);
}

TEST_F(BootClockTest, ACancelledAlarmIsSilent)
{
    clock.cancelAlarm();
    clock.setAlarm(1ms);
    clock.cancelAlarm();
    waitForAnother();
    EXPECT_EQ(rings, 0);
}

TEST_F(BootClockTest, HoldsNothingOpenWithoutAnAlarm)
{
    const qsizetype before = openFiles();
    clock.setAlarm(1h);
    EXPECT_GT(openFiles(), before);
    clock.cancelAlarm();
    EXPECT_EQ(openFiles(), before);
}

TEST_F(BootClockTest, WhoeverHearsItMaySetItAgain)
{
    QObject::connect(&clock, &SleepProofClock::rang, [this] {
        if (rings < 3)
            clock.setAlarm(1ms);
    });
    clock.setAlarm(1ms);
    runUntil([this] { return rings == 3; });
    EXPECT_EQ(rings, 3);
}

} // namespace
