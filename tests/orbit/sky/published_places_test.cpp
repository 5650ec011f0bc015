// Sun, moon and nutation against the worked examples of Meeus, "Astronomical Algorithms", 2nd ed. (1998).

#include "orbit/elements/element_set.h"
#include "orbit/sky/moon.h"
#include "orbit/sky/nutation.h"
#include "orbit/sky/sky_body.h"
#include "orbit/sky/sun.h"
#include "orbit/sky/time_scales.h"
#include "tests/support/testing.h"

namespace vantrace {
namespace {

constexpr double arcSecond = radiansPerDegree / 3600.0;

double centuriesOf(double julianEphemerisDay) {
    return (julianEphemerisDay - 2451545.0) / 36525.0;
}

double degrees(int whole, int minutes, double seconds) {
    return whole + minutes / 60.0 + seconds / 3600.0;
}

// Example 22.a, 1987 April 10.0 TD. The engine takes the 21 largest terms.
TEST(PublishedPlaces, Nutation) {
    const Nutation result = nutation(centuriesOf(2446895.5));
    EXPECT_NEAR(result.longitude / arcSecond, -3.788, 0.02);
    EXPECT_NEAR(result.obliquity / arcSecond, 9.443, 0.02);
    EXPECT_NEAR(result.trueObliquity / radiansPerDegree, degrees(23, 26, 36.850), 0.02 / 3600.0);
}

// Example 25.b, 1992 October 13.0 TD: apparent longitude (with nutation) and distance.
TEST(PublishedPlaces, Sun) {
    const double centuries = centuriesOf(2448908.5);
    const EclipticPosition sun = sunPosition(centuries);
    const double apparent = sun.longitudeRad + nutation(centuries).longitude;
    EXPECT_NEAR(apparent / radiansPerDegree, degrees(199, 54, 21.818), 1.0 / 3600.0);
    EXPECT_NEAR(sun.latitudeRad / arcSecond, 0.62, 0.3);
    EXPECT_NEAR(sun.distanceKm / astronomicalUnitKm, 0.99760775, 1e-6);
}

// Example 47.a, 1992 April 12.0 TD.
TEST(PublishedPlaces, Moon) {
    const EclipticPosition moon = moonPosition(centuriesOf(2448724.5));
    EXPECT_NEAR(moon.longitudeRad / radiansPerDegree, 133.162655, 1.5e-6);
    EXPECT_NEAR(moon.latitudeRad / radiansPerDegree, -3.229126, 1.5e-6);
    EXPECT_NEAR(moon.distanceKm, 368409.7, 0.06);
}

// Example 47.a goes on with right ascension 134.688470 and declination 13.768368 degrees. TT was 58.184 s
// (26 leap seconds and 32.184 s) ahead of UTC.
TEST(PublishedPlaces, MoonByTheEquator) {
    const Instant utc = plusSeconds(instantFromCalendar({1992, 4, 12, 0, 0, 0.0}), -58.184);
    const Vector3 r = bodyState(SkyBody::moon, utc).state.positionKm;
    EXPECT_NEAR(std::atan2(r.y, r.x) / radiansPerDegree, 134.688470, 2e-5);
    EXPECT_NEAR(std::asin(r.z / norm(r)) / radiansPerDegree, 13.768368, 2e-5);
}

// Example 12.a: apparent sidereal time at Greenwich, 1987 April 10, 0h UT.
TEST(PublishedPlaces, ApparentSiderealTime) {
    const Instant midnight = instantFromCalendar({1987, 4, 10, 0, 0, 0.0});
    const double hours = bodyState(SkyBody::sun, midnight).siderealTimeRad * 12.0 / pi;
    EXPECT_NEAR(hours * 3600.0, 13 * 3600.0 + 10 * 60.0 + 46.1351, 0.002);
}

// Leap seconds as announced in IERS Bulletin C.
TEST(PublishedPlaces, TerrestrialTime) {
    const auto at = [](int year, int month, int day, int hour = 0) {
        return terrestrialMinusUniversalTime(instantFromCalendar({year, month, day, hour, 0, 0.0}));
    };
    EXPECT_DOUBLE_EQ(at(1957, 10, 4), 42.184);
    EXPECT_DOUBLE_EQ(at(1972, 6, 30, 23), 42.184);
    EXPECT_DOUBLE_EQ(at(1972, 7, 1), 43.184);
    EXPECT_DOUBLE_EQ(at(1999, 1, 1), 64.184);
    EXPECT_DOUBLE_EQ(at(2005, 12, 31, 23), 64.184);
    EXPECT_DOUBLE_EQ(at(2006, 1, 1), 65.184);
    EXPECT_DOUBLE_EQ(at(2012, 7, 1), 67.184);
    EXPECT_DOUBLE_EQ(at(2016, 12, 31, 23), 68.184);
    EXPECT_DOUBLE_EQ(at(2017, 1, 1), 69.184);
    EXPECT_DOUBLE_EQ(at(2035, 1, 1), 69.184);
}

}  // namespace
}  // namespace vantrace
