#include "orbit/sunrise.h"

#include "tests/support/testing.h"

namespace vantrace {
namespace {

// Day numbers of the days that the tests look at.
constexpr double leapDay2024 = 45351.0;
constexpr double lastOf2024 = 45657.0;
constexpr double january1 = 46023.0;
constexpr double march20 = 46101.0;
constexpr double april30 = 46142.0;
constexpr double june21 = 46194.0;
constexpr double december21 = 46377.0;

constexpr double secondDays = 1.0 / 86400.0;

constexpr double clockTime(int hour, int minute, int second = 0) {
    return (hour * 3600 + minute * 60 + second) * secondDays;
}

clsSunrise sunAt(double date, double latitudeDeg, double longitudeWestDeg) {
    clsSunrise sun(date);
    sun.Latitude(latitudeDeg);
    sun.Longitude(longitudeWestDeg);
    sun.CalculateSun();
    return sun;
}

struct Day {
    const char* place;
    double date, latitudeDeg, longitudeWestDeg;
    double sunrise, solarNoon, sunset;  ///< days from the day's own midnight, UTC
};

void expectDay(const Day& day, double toleranceSeconds) {
    const clsSunrise sun = sunAt(day.date, day.latitudeDeg, day.longitudeWestDeg);
    const double tolerance = toleranceSeconds * secondDays;
    EXPECT_NEAR(sun.Sunrise().value() - day.date, day.sunrise, tolerance) << day.place;
    EXPECT_NEAR(sun.SolarNoon().value() - day.date, day.solarNoon, tolerance) << day.place;
    EXPECT_NEAR(sun.Sunset().value() - day.date, day.sunset, tolerance) << day.place;
}

TEST(Sunrise, AgreesWithTheAlmanacToTwoMinutes) {
    for (const Day& day :
         {Day{"London, midsummer", june21, 51.5, 0.0, clockTime(3, 43), clockTime(12, 2), clockTime(20, 21)},
          Day{"New York, equinox", march20, 40.7128, 74.006, clockTime(10, 59), clockTime(17, 3),
              clockTime(23, 8)},
          // East of Greenwich is far west, so the date part lies a day later.
          Day{"Sydney, midsummer", december21, -33.8688, 208.7907, clockTime(18, 41), 1 + clockTime(1, 53),
              1 + clockTime(9, 5)}}) {
        expectDay(day, 120.0);
    }
}

TEST(Sunrise, KeepsItsOwnSeriesToTheSecond) {
    // Worked out apart from this code; the published equation of time would be up to four seconds off.
    for (const Day& day :
         {Day{"London", june21, 51.5, 0.0, clockTime(3, 43, 20), clockTime(12, 1, 22), clockTime(20, 19, 25)},
          Day{"end of a leap year", lastOf2024, 51.5, 7.5, clockTime(8, 34, 30), clockTime(12, 33, 12),
              clockTime(16, 32, 6)},
          Day{"leap day", leapDay2024, 51.5, 0.0, clockTime(6, 47, 45), clockTime(12, 12, 51),
              clockTime(17, 38, 51)}}) {
        expectDay(day, 0.6);
    }
    // The first round of a sunset looks at the next day.
    const clsSunrise north = sunAt(april30, 66.0, 29.2);
    EXPECT_NEAR(north.Sunset().value() - april30, clockTime(22, 32, 18), 0.6 * secondDays);
    // Noon falls on 14:30; the equation of time is taken at 14 (half hours to even), a second away from 15.
    const clsSunrise half = sunAt(january1, 0.0, 37.5);
    EXPECT_NEAR(half.SolarNoon().value() - january1, clockTime(14, 33, 14), 0.6 * secondDays);
}

TEST(Sunrise, PolesAreTakenALittleWayOff) {
    EXPECT_EQ(sunAt(march20, 90.0, 10.0).Sunrise(), sunAt(march20, 89.8, 10.0).Sunrise());
    EXPECT_EQ(sunAt(march20, -90.0, 10.0).Sunset(), sunAt(march20, -89.8, 10.0).Sunset());
    EXPECT_NE(sunAt(march20, 70.0, 10.0).Sunrise(), sunAt(march20, 89.8, 10.0).Sunrise());
}

TEST(Sunrise, PolarDayAndNightGiveNoonForAllThree) {
    for (const double date : {june21, december21}) {
        const clsSunrise sun = sunAt(date, 78.2, 344.4);
        EXPECT_NEAR(sun.Sunrise().value(), sun.SolarNoon().value(), 60.0 * secondDays);
        EXPECT_NEAR(sun.Sunset().value(), sun.SolarNoon().value(), 60.0 * secondDays);
    }
}

TEST(Sunrise, DaySavingsAddAnHourAndAZoneTakesOne) {
    clsSunrise sun = sunAt(june21, 51.5, 0.0);
    const clsSunrise utc = sun;
    sun.DaySavings(true);
    EXPECT_EQ(sun.Sunrise(), utc.Sunrise()) << "setting a property computes nothing";
    for (const double hours : {1.0, -1.0}) {
        sun.CalculateSun();
        EXPECT_NEAR(*sun.Sunrise() - *utc.Sunrise(), hours / 24.0, 1e-9);
        EXPECT_NEAR(*sun.SolarNoon() - *utc.SolarNoon(), hours / 24.0, 1e-9);
        EXPECT_NEAR(*sun.Sunset() - *utc.Sunset(), hours / 24.0, 1e-9);
        sun.DaySavings(false);
        sun.TimeZone(1);
    }
}

TEST(Sunrise, StartsWithoutResultsAndPassesTheTimeOfDayOver) {
    clsSunrise sun(june21 + 0.75);
    EXPECT_FALSE(sun.Sunrise() || sun.Sunset() || sun.SolarNoon());
    sun.CalculateSun();
    EXPECT_EQ(sun.Sunrise(), sunAt(june21, 0.0, 0.0).Sunrise());
}

TEST(Sunrise, RefusesDatesAndLongitudesThatAreNone) {
    const double notANumber = std::numeric_limits<double>::quiet_NaN();
    EXPECT_THROW(sunAt(1e300, 0.0, 0.0), std::range_error);
    EXPECT_THROW(sunAt(notANumber, 0.0, 0.0), std::range_error);
    EXPECT_THROW(sunAt(june21, 0.0, 1e300), std::range_error);
    EXPECT_NO_THROW(sunAt(june21, notANumber, 0.0));
}

}  // namespace
}  // namespace vantrace
