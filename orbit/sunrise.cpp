#include "orbit/sunrise.h"

#include <chrono>
#include <cmath>
#include <cstddef>
#include <stdexcept>

#include "orbit/instant.h"

namespace vantrace {

namespace {

// This calculator has two values of pi of its own, shorter than the one of the other routines.
constexpr double shortPi = 3.1415926535;
constexpr double shortTwoPi = 6.283185307;

constexpr double highestLatitudeDeg = 89.8;

/// Nearest whole hour, halves to even.
int wholeHour(double hours) {
    constexpr double limit = 1.0e9;
    if (!(std::fabs(hours) < limit)) {
        throw std::range_error("sunrise: the longitude gives no hour of the day");
    }
    return static_cast<int>(std::nearbyint(hours));
}

std::chrono::sys_days calendarDay(double dateTime) {
    constexpr double limit = 3.0e6;  // some 8000 years either way
    if (!(std::fabs(dateTime) < limit)) {
        throw std::range_error("sunrise: the date lies outside the calendar");
    }
    using namespace std::chrono;
    return sys_days{year{1899} / December / 30} + days{static_cast<int>(std::floor(dateTime))};
}

/// Minutes of the day at Greenwich at which the sun stands at an hour angle.
double minutesAt(double longitudeDeg, double hourAngleDeg, double equationOfTimeMinutes) {
    return 4.0 * (longitudeDeg - hourAngleDeg) + minutesPerDay / 2.0 - equationOfTimeMinutes;
}

/// Near a pole the hour angle would have no meaning, so the place is taken a little way off it.
double keptOffThePoles(double latitudeDeg) {
    if (latitudeDeg >= -90.0 && latitudeDeg < -highestLatitudeDeg) {
        return -highestLatitudeDeg;
    }
    if (latitudeDeg > highestLatitudeDeg && latitudeDeg <= 90.0) {
        return highestLatitudeDeg;
    }
    return latitudeDeg;
}

}  // namespace

clsSunrise::clsSunrise(double presentDateTime) : m_dateDay(presentDateTime) {
    const std::array<Month, 12> months = {{{"January", 31},
                                           {"February", 28},
                                           {"March", 31},
                                           {"April", 30},
                                           {"May", 31},
                                           {"June", 30},
                                           {"July", 31},
                                           {"August", 31},
                                           {"September", 30},
                                           {"October", 31},
                                           {"November", 30},
                                           {"DEcember", 31}}};
    // February has 28 days in the leap years' table too; the day of the year comes from the calendar.
    MonthTables = {months, months};
}

bool clsSunrise::IsLeapYear(int year) {
    return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

double clsSunrise::SunRadToDeg(double radians) {
    return radians * 180.0 / shortPi;
}

double clsSunrise::SunDegToRad(double degrees) {
    return degrees * shortPi / 180.0;
}

int clsSunrise::DayNumber(int month, int day, bool leap) const {
    const auto& months = MonthTables[leap ? 1 : 0];
    int number = day;
    for (std::size_t before = 0; before + 1 < static_cast<std::size_t>(month); ++before) {
        number += months.at(before).days;
    }
    return number;
}

double clsSunrise::Gamma(int dayOfYear) {
    return (shortTwoPi / 365.0) * (dayOfYear - 1);
}

double clsSunrise::GammaAtHour(int dayOfYear, int hour) {
    return (shortTwoPi / 365.0) * (dayOfYear - 1 + hour / 24.0);
}

double clsSunrise::EquationOfTime(double gamma) {
    // 0.001568 is this program's own; the published series has another last digit.
    return 229.18 * (0.000075 + 0.001568 * std::cos(gamma) - 0.032077 * std::sin(gamma) -
                     0.014615 * std::cos(2.0 * gamma) - 0.040849 * std::sin(2.0 * gamma));
}

double clsSunrise::SolarDeclination(double gamma) {
    return 0.006918 - 0.399912 * std::cos(gamma) + 0.070257 * std::sin(gamma) -
           0.006758 * std::cos(2.0 * gamma) + 0.000907 * std::sin(2.0 * gamma);
}

double clsSunrise::SunArcCos(double x) {
    const double squared = 1.0 - x * x;
    if (!(squared > 0.0)) {
        return 0.0;  // the sun neither rises nor sets
    }
    return std::atan(-x / std::sqrt(squared)) + 2.0 * std::atan(1.0);
}

double clsSunrise::HourAngle(double latitudeDeg, double declination, bool rising) {
    const double latitude = SunDegToRad(latitudeDeg);
    const double zenith = SunDegToRad(90.833);  // refraction and half the sun's disc
    const double angle = SunArcCos(std::cos(zenith) / (std::cos(latitude) * std::cos(declination)) -
                                   std::tan(latitude) * std::tan(declination));
    return rising ? angle : -angle;
}

double clsSunrise::DayLength(double hourAngle) {
    return 2.0 * std::fabs(SunRadToDeg(hourAngle)) / 15.0;
}

double clsSunrise::SunriseMinutes(int dayOfYear, double latitudeDeg, double longitudeDeg) {
    const auto minutesFrom = [&](double gamma) {
        const double hourAngle = HourAngle(latitudeDeg, SolarDeclination(gamma), true);
        return minutesAt(longitudeDeg, SunRadToDeg(hourAngle), EquationOfTime(gamma));
    };
    const double firstRound = minutesFrom(Gamma(dayOfYear));
    return minutesFrom(GammaAtHour(dayOfYear, wholeHour(firstRound / 60.0)));
}

double clsSunrise::SunsetMinutes(int dayOfYear, double latitudeDeg, double longitudeDeg) {
    const auto minutesFrom = [&](double gamma) {
        const double hourAngle = HourAngle(latitudeDeg, SolarDeclination(gamma), false);
        return minutesAt(longitudeDeg, SunRadToDeg(hourAngle), EquationOfTime(gamma));
    };
    // The first round looks at the next day, the second at the day itself.
    const double firstRound = minutesFrom(Gamma(dayOfYear + 1));
    return minutesFrom(GammaAtHour(dayOfYear, wholeHour(firstRound / 60.0)));
}

double clsSunrise::SolarNoonMinutes(int dayOfYear, double longitudeDeg) {
    const double gamma = GammaAtHour(dayOfYear, wholeHour(longitudeDeg / 15.0 + 12.0));
    [[maybe_unused]] const double declination = SolarDeclination(gamma);
    return longitudeDeg * 4.0 + minutesPerDay / 2.0 - EquationOfTime(gamma);
}

void clsSunrise::CalculateSun() {
    const double savingMinutes = m_daySavings ? 60.0 : 0.0;
    const double latitudeDeg = keptOffThePoles(m_latitudeDeg);

    const std::chrono::sys_days today = calendarDay(m_dateDay);
    const std::chrono::year_month_day date{today};
    const int month = static_cast<int>(static_cast<unsigned>(date.month()));
    const int day = static_cast<int>(static_cast<unsigned>(date.day()));
    const int year = static_cast<int>(date.year());

    // Part of the class's design, without effect on the results.
    const int tableDay = DayNumber(month, day, IsLeapYear(year));
    const double tableGamma = GammaAtHour(tableDay, wholeHour(m_longitudeDeg / 15.0 + 12.0));
    [[maybe_unused]] const double equationOfTime = EquationOfTime(tableGamma);
    [[maybe_unused]] const double declination = SolarDeclination(tableGamma);

    const auto beforeYear =
        std::chrono::sys_days{date.year() / std::chrono::January / 1} - std::chrono::days{1};
    const int dayOfYear = static_cast<int>((today - beforeYear).count());
    const auto asDateTime = [&](double minutes) {
        const double seconds = (minutes - 60.0 * m_timeZoneHours + savingMinutes) * 60.0;
        return std::floor(m_dateDay) + std::nearbyint(seconds) / secondsPerDay;
    };
    const double sunrise = asDateTime(SunriseMinutes(dayOfYear, latitudeDeg, m_longitudeDeg));
    const double solarNoon = asDateTime(SolarNoonMinutes(dayOfYear, m_longitudeDeg));
    const double sunset = asDateTime(SunsetMinutes(dayOfYear, latitudeDeg, m_longitudeDeg));
    m_sunrise = sunrise;
    m_solarNoon = solarNoon;
    m_sunset = sunset;
}

}  // namespace vantrace
