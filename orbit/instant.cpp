#include "orbit/instant.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>

namespace vantrace {

namespace {

/// std::floor is a call on processors without a rounding instruction; for whole numbers that fit, this isn't.
double floorOf(double x) {
    constexpr double exactIntegers = 0x1p52;
    if (!(std::abs(x) < exactIntegers)) {
        return std::floor(x);
    }
    const auto whole = static_cast<double>(static_cast<std::int64_t>(x));
    return whole > x ? whole - 1.0 : whole;
}

}  // namespace

Instant instantFromJulianDate(double julianDate, double addedDays) {
    const double midnight = floorOf(julianDate - 0.5) + 0.5;
    const double fraction = (julianDate - midnight) + addedDays;
    const double wholeDays = floorOf(fraction);
    Instant result{midnight + wholeDays, fraction - wholeDays};
    if (result.fraction >= 1.0) {  // a negative fraction too small to be told from 0
        result = {result.day + 1.0, 0.0};
    }
    return result;
}

Instant instantFromDayNumber(double dayNumber) {
    const double wholeDays = std::floor(dayNumber);
    return instantFromJulianDate(julianDateOfDayNumberZero + wholeDays, dayNumber - wholeDays);
}

double dayNumber(const Instant& time) {
    return (time.day - julianDateOfDayNumberZero) + time.fraction;
}

Instant plusSeconds(const Instant& time, double seconds) {
    return instantFromJulianDate(time.day, time.fraction + seconds / secondsPerDay);
}

double secondsBetween(const Instant& earlier, const Instant& later) {
    return (later.day - earlier.day) * secondsPerDay + (later.fraction - earlier.fraction) * secondsPerDay;
}

double minutesBetween(const Instant& earlier, const Instant& later) {
    return (later.day - earlier.day) * minutesPerDay + (later.fraction - earlier.fraction) * minutesPerDay;
}

double julianDateOfMidnight(int year, int month, int day) {
    const int monthShift = (month - 14) / 12;
    const int number = (1461 * (year + 4800 + monthShift)) / 4 + (367 * (month - 2 - 12 * monthShift)) / 12 -
                       (3 * ((year + 4900 + monthShift) / 100)) / 4 + day - 32075;
    return number - 0.5;
}

Instant instantFromCalendar(const CalendarTime& time) {
    const double seconds = time.hour * 3600.0 + time.minute * 60.0 + time.second;
    return instantFromJulianDate(julianDateOfMidnight(time.year, time.month, time.day),
                                 seconds / secondsPerDay);
}

CalendarTime calendarTime(const Instant& time, int decimals) {
    const double unitsPerSecond = std::pow(10.0, decimals);
    double units = std::nearbyint(time.fraction * secondsPerDay * unitsPerSecond);
    double day = time.day;
    if (units >= secondsPerDay * unitsPerSecond) {
        units -= secondsPerDay * unitsPerSecond;
        day += 1.0;
    }
    // Fliegel and Van Flandern, 1968: calendar date of a Julian day number.
    int rest = static_cast<int>(std::floor(day + 0.5)) + 68569;
    const int century = 4 * rest / 146097;
    rest -= (146097 * century + 3) / 4;
    const int yearOfCentury = 4000 * (rest + 1) / 1461001;
    rest -= 1461 * yearOfCentury / 4 - 31;
    const int monthOfYear = 80 * rest / 2447;
    CalendarTime result;
    result.day = rest - 2447 * monthOfYear / 80;
    result.month = monthOfYear + 2 - 12 * (monthOfYear / 11);
    result.year = 100 * (century - 49) + yearOfCentury + monthOfYear / 11;
    const double minutes = std::floor(units / (60.0 * unitsPerSecond));
    result.second = (units - minutes * 60.0 * unitsPerSecond) / unitsPerSecond;
    result.hour = static_cast<int>(minutes) / 60;
    result.minute = static_cast<int>(minutes) % 60;
    return result;
}

bool isCalendarTime(const Instant& time) {
    constexpr double firstDayOfYear1 = 1721425.5;
    constexpr double firstDayOfYear10000 = 5373484.5;
    return time.day >= firstDayOfYear1 && time.day < firstDayOfYear10000;
}

std::string isoText(const Instant& time, int decimals) {
    if (!isCalendarTime(time)) {
        return "JD " + std::to_string(time.julianDate());
    }
    const CalendarTime parts = calendarTime(time, decimals);
    std::array<char, 64> text{};
    const int width = decimals > 0 ? decimals + 3 : 2;
    const int length =
        std::snprintf(text.data(), text.size(), "%04d-%02d-%02dT%02d:%02d:%0*.*fZ", parts.year, parts.month,
                      parts.day, parts.hour, parts.minute, width, decimals, parts.second);
    return {text.data(), static_cast<std::size_t>(length)};
}

std::string isoTextShort(const Instant& time) {
    if (!isCalendarTime(time)) {
        return isoText(time, 0);
    }
    std::string text = isoText(time, 6);
    text.pop_back();
    while (text.back() == '0') {
        text.pop_back();
    }
    if (text.back() == '.') {
        text.pop_back();
    }
    return text + 'Z';
}

namespace {

/// Reads one piece of a time after another; any miss leaves it failed.
class TimeReader {
  public:
    explicit TimeReader(std::string_view text) : m_rest(text) {}

    int digits(std::size_t count) {
        int value = 0;
        if (m_rest.size() < count) {
            m_failed = true;
            return 0;
        }
        for (std::size_t i = 0; i < count; ++i) {
            const char c = m_rest[i];
            m_failed = m_failed || c < '0' || c > '9';
            value = value * 10 + (c - '0');
        }
        m_rest.remove_prefix(count);
        return value;
    }

    bool take(char wanted) {
        const bool there = !m_rest.empty() && m_rest.front() == wanted;
        if (there) {
            m_rest.remove_prefix(1);
        }
        return there;
    }

    void require(bool holds) { m_failed = m_failed || !holds; }
    void expect(char wanted) { m_failed = !take(wanted) || m_failed; }

    /// What stands behind a decimal mark, as a fraction of a second; at least one digit.
    double fraction() {
        double value = 0.0;
        double unit = 0.1;
        std::size_t count = 0;
        while (!m_rest.empty() && m_rest.front() >= '0' && m_rest.front() <= '9') {
            value += unit * (m_rest.front() - '0');
            unit *= 0.1;
            m_rest.remove_prefix(1);
            ++count;
        }
        m_failed = m_failed || count == 0;
        return value;
    }

    bool atEnd() const { return m_rest.empty(); }
    bool failed() const { return m_failed; }

  private:
    std::string_view m_rest;
    bool m_failed = false;
};

/// Minutes east of UTC of "Z", "+hh:mm", "-hhmm" or nothing.
int readOffsetMinutes(TimeReader& reader) {
    if (reader.atEnd() || reader.take('Z') || reader.take('z')) {
        return 0;
    }
    const bool west = reader.take('-');
    if (!west) {
        reader.expect('+');
    }
    const int hours = reader.digits(2);
    reader.take(':');
    const int minutes = reader.digits(2);
    reader.require(hours < 24 && minutes < 60);
    return (west ? -1 : 1) * (hours * 60 + minutes);
}

bool isInCalendar(const CalendarTime& time) {
    if (time.year < 1900 || time.year > 9999 || time.month < 1 || time.month > 12 || time.day < 1) {
        return false;
    }
    const int nextMonth = time.month % 12 + 1;
    const int nextYear = time.month == 12 ? time.year + 1 : time.year;
    const double monthLength =
        julianDateOfMidnight(nextYear, nextMonth, 1) - julianDateOfMidnight(time.year, time.month, 1);
    return time.day <= monthLength && time.hour < 24 && time.minute < 60 && time.second < 61.0;
}

}  // namespace

std::optional<Instant> parseIsoText(std::string_view text) {
    TimeReader reader(text);
    CalendarTime time;
    time.year = reader.digits(4);
    reader.expect('-');
    time.month = reader.digits(2);
    reader.expect('-');
    time.day = reader.digits(2);
    int offsetMinutes = 0;
    if (reader.take('T') || reader.take('t') || reader.take(' ')) {
        time.hour = reader.digits(2);
        reader.expect(':');
        time.minute = reader.digits(2);
        if (reader.take(':')) {
            time.second = reader.digits(2);
            if (reader.take('.') || reader.take(',')) {
                time.second += reader.fraction();
            }
        }
        offsetMinutes = readOffsetMinutes(reader);
    }
    if (reader.failed() || !reader.atEnd() || !isInCalendar(time)) {
        return std::nullopt;
    }
    return plusSeconds(instantFromCalendar(time), -60.0 * offsetMinutes);
}

}  // namespace vantrace
