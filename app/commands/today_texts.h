// Small texts of the page for today.
#pragma once

#include <string>
#include <string_view>

#include "orbit/instant.h"
#include "platform/clock.h"

namespace vantrace {

double degreesOf(double radians);

/// "N", "NE", ... of an azimuth.
std::string_view compassPoint(double azimuthRad);

/// "2026-11-22 10:00:00".
std::string wholeTimeText(const Instant& time);
/// "10:00:00", with the day in front where it isn't the day of `now`: "24 NOV 10:00:00".
std::string shortTimeText(const Instant& time, const Instant& now);

/// What the machine's local time is ahead of UTC.
int minutesEast(const Clock& clock);
Instant plusMinutes(const Instant& time, int minutes);
/// "UTC+02:00".
std::string offsetText(int minutesEast);

}  // namespace vantrace
