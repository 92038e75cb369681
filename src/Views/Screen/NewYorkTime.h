#pragma once

#include <QDateTime>

/// Appointments are New York appointments: how a moment is written for the bridge and for the person.
namespace NewYorkTime {

/// "yyyy-MM-dd" in New York.
QString dateText(const QDateTime& moment);
/// "h:mm a" in New York, e.g. "2:05 PM".
QString timeText(const QDateTime& moment);
/// The moment as New York's clocks show it, with the zone's abbreviation, and with the day when it is another
/// day there than here; empty when the local clocks show the same.
QString besideLocal(const QDateTime& moment);

} // namespace NewYorkTime
