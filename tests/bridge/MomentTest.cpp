#include "Moment.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <ctime>

using namespace bridge;
using namespace std::chrono;

namespace {

struct Row
{
    const char* name;
    sys_seconds utc;
    const char* date;
    const char* time;
};

constexpr Row rows[] = {
    {"Winter", sys_days(2026y / January / 15) + 19h + 5min, "2026-01-15", "2:05 PM"},
    {"Summer", sys_days(2026y / July / 15) + 18h + 5min, "2026-07-15", "2:05 PM"},
    {"MidnightIsTwelve", sys_days(2026y / July / 15) + 4h, "2026-07-15", "12:00 AM"},
    {"NoonIsTwelve", sys_days(2026y / July / 15) + 16h, "2026-07-15", "12:00 PM"},
    {"TheDayBefore", sys_days(2026y / July / 15) + 3h + 59min, "2026-07-14", "11:59 PM"},
    {"BeforeSpring", sys_days(2026y / March / 8) + 6h + 59min, "2026-03-08", "1:59 AM"},
    {"AfterSpring", sys_days(2026y / March / 8) + 7h, "2026-03-08", "3:00 AM"},
    {"BeforeAutumn", sys_days(2026y / November / 1) + 5h + 59min, "2026-11-01", "1:59 AM"},
    {"AfterAutumn", sys_days(2026y / November / 1) + 6h, "2026-11-01", "1:00 AM"},
    {"LeapDay", sys_days(2028y / February / 29) + 12h, "2028-02-29", "7:00 AM"},
};

class NewYork : public testing::TestWithParam<Row>
{ };

} // namespace

TEST_P(NewYork, ShowsItsOwnTime)
{
    EXPECT_EQ(newYorkDate(GetParam().utc), GetParam().date);
    EXPECT_EQ(newYorkTime(GetParam().utc), GetParam().time);
    EXPECT_EQ(newYorkDateTime(GetParam().utc), std::string(GetParam().date) + ' ' + GetParam().time);
}
INSTANTIATE_TEST_SUITE_P(
    Moments, NewYork, testing::ValuesIn(rows), [](const auto& row) { return row.param.name; });

TEST(UtcStamp, HasMilliseconds)
{
    EXPECT_EQ(utcStamp(sys_days(2026y / July / 5) + 4h + 5min + 6s + 78ms), "2026-07-05T04:05:06.078Z");
}

// Texts of later moments sort later, which is how clients tell what changed last.
RC_GTEST_PROP(UtcStamp, SortsAsItsMoments, ())
{
    const auto moment = [] { return Moment(milliseconds(*rc::gen::inRange(0ll, 4'000'000'000'000ll))); };
    const Moment one = moment();
    const Moment other = moment();
    RC_ASSERT((one < other) == (utcStamp(one) < utcStamp(other)));
}
