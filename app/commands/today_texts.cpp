#include "app/commands/today_texts.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdlib>

#include "core/date_time.h"
#include "core/texts.h"
#include "orbit/elements/element_set.h"

namespace vantrace {

double degreesOf(double radians) {
    return radians / radiansPerDegree;
}

std::string_view compassPoint(double azimuthRad) {
    constexpr std::array<std::string_view, 8> points{"N", "NE", "E", "SE", "S", "SW", "W", "NW"};
    const auto eighths = static_cast<std::size_t>(std::lround(azimuthRad / twoPi * 8.0));
    return points[eighths % points.size()];
}

std::string wholeTimeText(const Instant& time) {
    std::string text = isoText(time, 0);
    text.pop_back();
    constexpr std::size_t separator = 10;
    text[separator] = ' ';
    return text;
}

std::string shortTimeText(const Instant& time, const Instant& now) {
    const CalendarTime parts = calendarTime(time, 0);
    const std::string text = TimeText(parts.hour, parts.minute, static_cast<int>(parts.second));
    const CalendarTime today = calendarTime(now, 0);
    const bool isToday = parts.day == today.day && parts.month == today.month && parts.year == today.year;
    return isToday ? text : MonthDayText(parts.day, parts.month) + " " + text;
}

int minutesEast(const Clock& clock) {
    return -offsetMinutes(clock);
}

Instant plusMinutes(const Instant& time, int minutes) {
    constexpr double secondsPerMinute = 60.0;
    return plusSeconds(time, secondsPerMinute * minutes);
}

std::string offsetText(int minutesEast) {
    const std::string hoursAndMinutes = TimeText(0, std::abs(minutesEast), 0).substr(0, 5);
    return (minutesEast < 0 ? "UTC-" : "UTC+") + hoursAndMinutes;
}

}  // namespace vantrace
