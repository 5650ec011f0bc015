#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vantrace {

/// A moment of UTC as a Julian date in two doubles, so that a microsecond survives. `day` ends in .5
/// (midnight), `fraction` is 0 up to 1.
struct Instant {
    double day = 2451544.5;
    double fraction = 0.0;

    double julianDate() const { return day + fraction; }
};

inline constexpr double minutesPerDay = 1440.0;
inline constexpr double secondsPerDay = 86400.0;
/// Julian date of day number 0 (1899-12-30 00:00).
inline constexpr double julianDateOfDayNumberZero = 2415018.5;

/// The two parts of any Julian date, or of a day and an addition in days, normalised.
Instant instantFromJulianDate(double julianDate, double addedDays = 0.0);
Instant instantFromDayNumber(double dayNumber);
double dayNumber(const Instant& time);

Instant plusSeconds(const Instant& time, double seconds);
/// later - earlier, in seconds.
double secondsBetween(const Instant& earlier, const Instant& later);
double minutesBetween(const Instant& earlier, const Instant& later);

/// Gregorian calendar, UTC. `second` holds its fraction.
struct CalendarTime {
    int year = 2000;
    int month = 1;
    int day = 1;
    int hour = 0;
    int minute = 0;
    double second = 0.0;
};

/// Julian date of midnight of a Gregorian date (Fliegel and Van Flandern, 1968); days past the month's end
/// carry.
double julianDateOfMidnight(int year, int month, int day);
Instant instantFromCalendar(const CalendarTime& time);
/// The calendar form, rounded to 10^-`decimals` of a second (carried through to the year).
CalendarTime calendarTime(const Instant& time, int decimals);

/// Whether a Julian date lies in the years 1 to 9999, where the calendar forms work.
bool isCalendarTime(const Instant& time);

/// ISO 8601, "2026-08-22T10:00:00.5Z": exactly `decimals` places, 0 to 9. A moment outside the
/// years 1 to 9999 is told as its Julian date.
std::string isoText(const Instant& time, int decimals);
/// The same with as many places as the microsecond needs, at most 6.
std::string isoTextShort(const Instant& time);
/// Reads ISO 8601 dates and times: "2026-08-22", "2026-08-22T10:00", "2026-08-22 10:00:00.123456Z",
/// "...+02:00", without an offset UTC. Years 1900 to 9999. Empty when the text is no such time.
std::optional<Instant> parseIsoText(std::string_view text);

}  // namespace vantrace
