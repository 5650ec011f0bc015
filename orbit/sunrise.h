// Sunrise, solar noon and sunset of one day at one place, from a low-order Fourier series for the sun: the
// equation of time and the declination after J. W. Spencer, "Fourier series representation of the position of
// the sun", Search 2 (5), 1971, with one coefficient of this program's own. A minute or two is what it gives.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

namespace vantrace {

/// Create, set, `CalculateSun`, read. Dates are day numbers (day 0 is 1899-12-30), latitudes degrees north,
/// longitudes degrees WEST. The day's times are Greenwich times unless `TimeZone` or `DaySavings` say
/// otherwise.
class clsSunrise {
  public:
    /// `presentDateTime` is what `DateDay` holds until it is set.
    explicit clsSunrise(double presentDateTime);

    /// Results as day numbers, empty until `CalculateSun` has run. In a polar day or night they are the times
    /// of an hour angle of 0. West of Greenwich the date part can lie a day late; the time of day is right.
    std::optional<double> Sunrise() const { return m_sunrise; }
    std::optional<double> Sunset() const { return m_sunset; }
    std::optional<double> SolarNoon() const { return m_solarNoon; }

    /// Hours to take from Greenwich time.
    void TimeZone(std::int32_t hours) { m_timeZoneHours = hours; }
    std::int32_t TimeZone() const { return m_timeZoneHours; }
    /// True adds 60 minutes.
    void DaySavings(bool on) { m_daySavings = on; }
    bool DaySavings() const { return m_daySavings; }
    void Longitude(double degreesWest) { m_longitudeDeg = degreesWest; }
    double Longitude() const { return m_longitudeDeg; }
    void Latitude(double degreesNorth) { m_latitudeDeg = degreesNorth; }
    double Latitude() const { return m_latitudeDeg; }
    void DateDay(double dateTime) { m_dateDay = dateTime; }
    double DateDay() const { return m_dateDay; }

    /// Fills the three results. Throws std::range_error for a date or a longitude that no calendar or clock
    /// holds; the results stay as they were.
    void CalculateSun();

  private:
    struct Month {
        std::string_view name;
        int days = 0;
    };

    static bool IsLeapYear(int year);
    static double SunRadToDeg(double radians);
    static double SunDegToRad(double degrees);
    int DayNumber(int month, int day, bool leap) const;
    static double Gamma(int dayOfYear);
    static double GammaAtHour(int dayOfYear, int hour);
    static double EquationOfTime(double gamma);
    static double SolarDeclination(double gamma);
    static double SunArcCos(double x);
    static double HourAngle(double latitudeDeg, double declination, bool rising);
    static double DayLength(double hourAngle);
    static double SunriseMinutes(int dayOfYear, double latitudeDeg, double longitudeDeg);
    static double SunsetMinutes(int dayOfYear, double latitudeDeg, double longitudeDeg);
    static double SolarNoonMinutes(int dayOfYear, double longitudeDeg);

    std::array<std::array<Month, 12>, 2> MonthTables;
    std::int32_t m_timeZoneHours = 0;
    bool m_daySavings = false;
    double m_longitudeDeg = 0.0;
    double m_latitudeDeg = 0.0;
    double m_dateDay;
    std::optional<double> m_sunrise;
    std::optional<double> m_sunset;
    std::optional<double> m_solarNoon;
};

}  // namespace vantrace
