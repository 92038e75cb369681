#pragma once

#include <QDateTime>
#include <QTimeZone>

/// Between instants and what a clock on the wall of a time zone shows. An editor of dates works on the
/// latter, written as if it were UTC, because UTC has no hours that are skipped or repeated.
namespace WallClock {

QDateTime reading(const QDateTime& instant, const QTimeZone& zone);
/// The instant at which the clock shows this, as local time. An hour skipped in spring is taken to be as much
/// later as the clock jumps.
QDateTime instant(const QDateTime& reading, const QTimeZone& zone);

} // namespace WallClock
