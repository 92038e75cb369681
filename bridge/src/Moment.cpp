#include "Moment.h"

#include <array>
#include <cstdio>

namespace bridge {

using namespace std::chrono;

Moment systemTime()
{
    return time_point_cast<milliseconds>(system_clock::now());
}

// Daylight time runs from the second Sunday of March, 2:00 standard time, to the first Sunday of November,
// 2:00 daylight time.
static Moment newYorkWallClock(Moment moment)
{
    const year_month_day date{floor<days>(moment)};
    const Moment begin = sys_days{date.year() / March / Sunday[2]} + 7h;
    const Moment end = sys_days{date.year() / November / Sunday[1]} + 6h;
    const bool isDaylightTime = moment >= begin && moment < end;
    return moment - (isDaylightTime ? 4h : 5h);
}

static std::string dateText(Moment wallClock)
{
    const year_month_day date{floor<days>(wallClock)};
    std::array<char, 32> text;
    std::snprintf(text.data(), text.size(), "%04d-%02u-%02u", static_cast<int>(date.year()),
        static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()));
    return text.data();
}

std::string newYorkDate(Moment moment)
{
    return dateText(newYorkWallClock(moment));
}

std::string newYorkTime(Moment moment)
{
    const Moment wallClock = newYorkWallClock(moment);
    const hh_mm_ss time{floor<seconds>(wallClock - floor<days>(wallClock))};
    std::array<char, 32> text;
    std::snprintf(text.data(), text.size(), "%d:%02d %s", static_cast<int>(make12(time.hours()).count()),
        static_cast<int>(time.minutes().count()), is_am(time.hours()) ? "AM" : "PM");
    return text.data();
}

std::string newYorkDateTime(Moment moment)
{
    return newYorkDate(moment) + ' ' + newYorkTime(moment);
}

std::string utcStamp(Moment moment)
{
    const hh_mm_ss time{moment - floor<days>(moment)};
    std::array<char, 32> text;
    std::snprintf(text.data(), text.size(), "T%02d:%02d:%02d.%03dZ", static_cast<int>(time.hours().count()),
        static_cast<int>(time.minutes().count()), static_cast<int>(time.seconds().count()),
        static_cast<int>(time.subseconds().count()));
    return dateText(moment) + text.data();
}

} // namespace bridge
