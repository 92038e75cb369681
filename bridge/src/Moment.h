#pragma once

#include <chrono>
#include <functional>
#include <string>

namespace bridge {

/// A point in time as the database keeps it: milliseconds since 1970 in UTC.
using Moment = std::chrono::sys_time<std::chrono::milliseconds>;

/// Tells the time. The server is handed one, so that a test can let an hour pass at once.
using Clock = std::function<Moment()>;

Moment systemTime();

/// Time that only runs forward, for what is measured from one moment to another: a clock that is set shortens
/// and lengthens nothing.
using SteadyMoment = std::chrono::steady_clock::time_point;
using SteadyClock = std::function<SteadyMoment()>;

/// The number that the database keeps of it.
inline long long stamp(Moment moment)
{
    return moment.time_since_epoch().count();
}

/// The service works in New York time: appointments, reference numbers and every date that people read are in
/// it. "2025-03-09".
std::string newYorkDate(Moment moment);

/// "2:05 PM".
std::string newYorkTime(Moment moment);

/// "2025-03-09 2:05 PM".
std::string newYorkDateTime(Moment moment);

/// "2025-03-09T19:05:00.123Z", for fields that programs compare.
std::string utcStamp(Moment moment);

} // namespace bridge
