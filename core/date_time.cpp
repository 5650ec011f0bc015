#include "core/date_time.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <stdexcept>
#include <string>

namespace vantrace {

namespace {

constexpr std::int64_t secondsPerDay = 86400;
constexpr int minutesPerDay = 1440;

constexpr std::int64_t floorDivided(std::int64_t value, std::int64_t by) {
    return value / by - (value % by < 0 ? 1 : 0);
}

/// Days from 1899-12-30 to the first of a month. The count runs over years that start in March, so that the
/// leap day is the last of its year; 400 years are 146097 days.
constexpr std::int64_t dayOfMonthStart(std::int64_t year, std::int64_t month) {
    const std::int64_t marchYear = month <= 2 ? year - 1 : year;
    const std::int64_t monthsFromMarch = (month + 9) % 12;
    const std::int64_t leapDays =
        floorDivided(marchYear, 4) - floorDivided(marchYear, 100) + floorDivided(marchYear, 400);
    // Months from March on have 31, 30, 31, 30, 31 days, over and over: 153 in five.
    const std::int64_t daysInYear = (153 * monthsFromMarch + 2) / 5;
    constexpr std::int64_t daysToFirstMarchOfYear0 = 693899;
    return marchYear * 365 + leapDays + daysInYear - daysToFirstMarchOfYear0;
}

constexpr std::int64_t firstDay = dayOfMonthStart(100, 1);
constexpr std::int64_t lastDay = dayOfMonthStart(10000, 1) - 1;
static_assert(dayOfMonthStart(1899, 12) + 29 == 0);

struct WholeSeconds {
    std::int64_t day = 0;
    std::int64_t second = 0;
};

WholeSeconds nearestSecond(double dateTime) {
    const double day = std::floor(dateTime);
    WholeSeconds result{static_cast<std::int64_t>(day), std::llround((dateTime - day) * secondsPerDay)};
    if (result.second == secondsPerDay) {
        ++result.day;
        result.second = 0;
    }
    return result;
}

double dayNumber(const WholeSeconds& time) {
    return static_cast<double>(time.day) + static_cast<double>(time.second) / secondsPerDay;
}

WholeSeconds carried(const DateParts& parts) {
    const std::int64_t monthsSinceYear0 = std::int64_t{parts.year} * 12 + parts.month - 1;
    const std::int64_t year = floorDivided(monthsSinceYear0, 12);
    const std::int64_t seconds =
        std::int64_t{parts.hour} * 3600 + std::int64_t{parts.minute} * 60 + parts.second;
    const std::int64_t days = floorDivided(seconds, secondsPerDay);
    return {dayOfMonthStart(year, monthsSinceYear0 - year * 12 + 1) + parts.day - 1 + days,
            seconds - days * secondsPerDay};
}

/// An offset is added as whole minutes; what was a whole second must not come out a bit beside one.
double shiftedByMinutes(double dateTime, int minutes) {
    const double sum = dateTime + static_cast<double>(minutes) / minutesPerDay;
    if (!(sum >= static_cast<double>(firstDay) && sum < static_cast<double>(lastDay) + 1)) return sum;
    const double whole = dayNumber(nearestSecond(sum));
    const double noise = 4 * std::numeric_limits<double>::epsilon() * std::max(1.0, std::abs(sum));
    return std::abs(whole - sum) <= noise ? whole : sum;
}

}  // namespace

double packDateTime(const DateParts& parts) {
    const WholeSeconds time = carried(parts);
    if (time.day < firstDay || time.day > lastDay) {
        throw std::range_error("day number " + std::to_string(time.day) +
                               " is outside the years 100 to 9999");
    }
    return dayNumber(time);
}

DateParts dateParts(double dateTime) {
    if (!(dateTime >= static_cast<double>(firstDay) && dateTime < static_cast<double>(lastDay) + 1)) {
        throw std::range_error("date-time " + std::to_string(dateTime) + " is outside the years 100 to 9999");
    }
    const WholeSeconds time = nearestSecond(dateTime);
    // A year has at least 365 and at most 366 days, so a guess from the mean is at most one off.
    std::int64_t year = 1900 + floorDivided(time.day * 400, 146097);
    while (dayOfMonthStart(year, 1) > time.day) --year;
    while (dayOfMonthStart(year + 1, 1) <= time.day) ++year;
    std::int64_t month = 12;
    while (dayOfMonthStart(year, month) > time.day) --month;
    return {static_cast<int>(year),
            static_cast<int>(month),
            static_cast<int>(time.day - dayOfMonthStart(year, month) + 1),
            static_cast<int>(time.second / 3600),
            static_cast<int>(time.second / 60 % 60),
            static_cast<int>(time.second % 60)};
}

double NowLocal(const Clock& clock) {
    return packDateTime(clock.read().local);
}

double NowUTC(const Clock& clock) {
    return packDateTime(clock.read().utc);
}

int offsetMinutes(const Clock& clock) {
    const ClockReading now = clock.read();
    const WholeSeconds local = carried(now.local);
    const WholeSeconds utc = carried(now.utc);
    return static_cast<int>(((utc.day - local.day) * secondsPerDay + utc.second - local.second) / 60);
}

double ToUTC(const Clock& clock, double local) {
    return shiftedByMinutes(local, offsetMinutes(clock));
}

double ToLocal(const Clock& clock, double utc) {
    return shiftedByMinutes(utc, -offsetMinutes(clock));
}

}  // namespace vantrace
