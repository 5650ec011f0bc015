// Dates and times as day numbers.
#pragma once

#include "platform/clock.h"

namespace vantrace {

/// Half a second: day numbers of the clock are whole seconds, but not to the last bit.
inline constexpr double slackDays = 0.5 / 86400;

/// A date-time is a double: the whole part counts days from 1899-12-30, the fraction is the time of day, also
/// before that day (-0.25 is 18:00 of 1899-12-29). Local time or UTC, by the routine that made it.
using DateParts = ClockParts;

/// The day number of a date and time. Parts beyond their ranges are carried: month 13 is January of the next
/// year, day 0 the last of the month before, second 75 a minute and 15 seconds. Throws std::range_error where
/// the result lies outside the years 100 to 9999.
double packDateTime(const DateParts& parts);

/// The parts of a day number, after rounding to the nearest second. Throws std::range_error outside the years
/// 100 to 9999 and for what is no number.
DateParts dateParts(double dateTime);

/// Now, in whole seconds, by the local time of the machine.
double NowLocal(const Clock& clock);

/// Now, in whole seconds, UTC.
double NowUTC(const Clock& clock);

/// What is to be added to local time for UTC, in whole minutes, from one reading of the clock: the offset
/// that the machine has now. Negative where the UTC is the earlier one, that is east of Greenwich.
int offsetMinutes(const Clock& clock);

/// A local date-time in UTC, and back, by the offset that the machine has now, whatever the date's own
/// daylight-saving period. A whole second stays exactly the day number that packDateTime gives for it.
double ToUTC(const Clock& clock, double local);
double ToLocal(const Clock& clock, double utc);

}  // namespace vantrace
