#include "WallClock.h"

namespace WallClock {

QDateTime reading(const QDateTime& instant, const QTimeZone& zone)
{
    const auto there = instant.toTimeZone(zone);
    return QDateTime(there.date(), there.time(), Qt::UTC);
}

QDateTime instant(const QDateTime& reading, const QTimeZone& zone)
{
    const QDateTime plain(reading.date(), reading.time(), zone);
    if (plain.isValid() && WallClock::reading(plain, zone) == reading)
        return plain.toLocalTime();
    const QDateTime dayBefore(reading.date().addDays(-1), reading.time(), zone);
    return reading.addSecs(-dayBefore.offsetFromUtc()).toLocalTime();
}

} // namespace WallClock
