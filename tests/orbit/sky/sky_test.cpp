// Sun, moon and nutation against the worked examples of Meeus, "Astronomical Algorithms", 2nd ed. (1998), and
// against published moments.
#include "orbit/elements/element_set.h"
#include "orbit/sky/moon.h"
#include "orbit/sky/nutation.h"
#include "orbit/sky/sky_body.h"
#include "orbit/sky/sun.h"
#include "orbit/sky/time_scales.h"
#include "tests/orbit/engine_test.h"

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
    // It goes on with right ascension and declination. TT was 58.184 s (26 leap seconds and 32.184 s) ahead
    // of UTC.
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
    const struct {
        const char* time;
        double seconds;
    } table[] = {{"1957-10-04", 42.184}, {"1972-06-30T23:00", 42.184}, {"1972-07-01", 43.184},
                 {"1999-01-01", 64.184}, {"2005-12-31T23:00", 64.184}, {"2006-01-01", 65.184},
                 {"2012-07-01", 67.184}, {"2016-12-31T23:00", 68.184}, {"2017-01-01", 69.184},
                 {"2035-01-01", 69.184}};
    for (const auto& row : table) {
        EXPECT_DOUBLE_EQ(terrestrialMinusUniversalTime(*parseIsoText(row.time)), row.seconds) << row.time;
    }
}

double angleBetween(double a, double b) {
    return std::remainder(a - b, twoPi);
}

/// The moment within an hour of `guess` at which a growing angle reaches `target`.
template <class Angle>
double secondsAfter(const Instant& guess, double target, Angle&& angle) {
    double low = -3600.0;
    double high = 3600.0;
    while (high - low > 0.1) {
        const double middle = 0.5 * (low + high);
        (angleBetween(angle(plusSeconds(guess, middle)), target) < 0.0 ? low : high) = middle;
    }
    return low;
}

TEST(SkyBody, MoonPhasesComeAtTheirPublishedMinutes) {
    constexpr double newMoon = -pi, firstQuarter = -pi / 2.0, fullMoon = 0.0, lastQuarter = pi / 2.0;
    // Phases of the moon, U.S. Naval Observatory, UTC.
    const struct {
        const char* time;
        double phase;
    } table[] = {
        {"2000-01-06T18:14Z", newMoon},      {"2000-01-14T13:34Z", firstQuarter},
        {"2000-01-21T04:40Z", fullMoon},     {"2000-01-28T07:57Z", lastQuarter},
        {"2010-01-07T10:39Z", lastQuarter},  {"2010-01-15T07:11Z", newMoon},
        {"2010-01-23T10:53Z", firstQuarter}, {"2010-01-30T06:18Z", fullMoon},
        {"2020-01-03T04:45Z", firstQuarter}, {"2020-01-10T19:21Z", fullMoon},
        {"2020-01-17T12:58Z", lastQuarter},  {"2020-01-24T21:42Z", newMoon},
        {"2024-01-04T03:30Z", lastQuarter},  {"2024-01-11T11:57Z", newMoon},
        {"2024-01-18T03:53Z", firstQuarter}, {"2024-01-25T17:54Z", fullMoon},
        {"2024-04-08T18:21Z", newMoon},      {"2024-04-23T23:49Z", fullMoon},
        {"2026-01-03T10:03Z", fullMoon},     {"2026-01-10T15:48Z", lastQuarter},
        {"2026-01-18T19:52Z", newMoon},      {"2026-01-26T04:47Z", firstQuarter},
    };
    for (const auto& row : table) {
        const double late = secondsAfter(*parseIsoText(row.time), row.phase, [](const Instant& time) {
            return bodyState(SkyBody::moon, time).phaseAngleRad;
        });
        EXPECT_LT(std::abs(late), 60.0) << row.time << " is off by " << late << " s";
    }
}

TEST(SkyBody, ThePhaseGrowsFromNewToNew) {
    const Instant start = instantFromCalendar({2026, 1, 1, 0, 0, 0.0});
    double last = bodyState(SkyBody::moon, start).phaseAngleRad;
    int wraps = 0;
    for (int hour = 1; hour <= 24 * 365; ++hour) {
        const double phase = bodyState(SkyBody::moon, plusSeconds(start, hour * 3600.0)).phaseAngleRad;
        EXPECT_TRUE(phase >= -pi && phase < pi) << phase;
        wraps += phase < last ? 1 : 0;
        EXPECT_TRUE(phase > last || (phase < -3.12 && last > 3.12)) << hour;
        last = phase;
    }
    EXPECT_EQ(wraps, 12);  // the new moons of 2026
    EXPECT_EQ(bodyState(SkyBody::sun, start).phaseAngleRad, 0.0);
}

TEST(SkyBody, EquinoxesAndSolsticesComeAtTheirPublishedMinutes) {
    // Earth's seasons, U.S. Naval Observatory, UTC.
    const struct {
        const char* time;
        double longitudeDeg;
    } table[] = {
        {"2000-03-20T07:35Z", 0.0},   {"2000-06-21T01:48Z", 90.0},  {"2000-09-22T17:28Z", 180.0},
        {"2000-12-21T13:37Z", 270.0}, {"2020-03-20T03:50Z", 0.0},   {"2020-06-20T21:44Z", 90.0},
        {"2020-09-22T13:31Z", 180.0}, {"2020-12-21T10:02Z", 270.0}, {"2024-03-20T03:06Z", 0.0},
        {"2024-06-20T20:51Z", 90.0},  {"2024-09-22T12:44Z", 180.0}, {"2024-12-21T09:20Z", 270.0},
        {"2026-03-20T14:46Z", 0.0},
    };
    for (const auto& row : table) {
        const double late = secondsAfter(
            *parseIsoText(row.time), row.longitudeDeg * radiansPerDegree, [](const Instant& time) {
                const double centuries = julianCenturiesTT(time);
                return sunPosition(centuries).longitudeRad + nutation(centuries).longitude;
            });
        EXPECT_LT(std::abs(late), 90.0) << row.time << " is off by " << late << " s";
    }
}

class EclipseTest : public EngineTest {
  protected:
    /// Between the centres of sun and moon as the observer sees them, degrees.
    double separationDeg(const Instant& time) {
        const TrackResult sun = engine.track("sun", time);
        const TrackResult moon = engine.track("moon", time);
        const double cosine = std::sin(sun.elevationRad) * std::sin(moon.elevationRad) +
                              std::cos(sun.elevationRad) * std::cos(moon.elevationRad) *
                                  std::cos(sun.azimuthRad - moon.azimuthRad);
        return std::acos(std::min(1.0, cosine)) / radiansPerDegree;
    }
};

TEST_F(EclipseTest, TheMoonStandsBeforeTheSunAtTheGreatestEclipse) {
    // F. Espenak, NASA eclipse pages: moment, place and the sun's height at greatest eclipse.
    const struct {
        const char* time;
        double latitudeDeg, longitudeDeg, sunElevationDeg;
    } table[] = {
        {"1999-08-11T11:03:04Z", 45.08, 24.30, 59.3},
        {"2017-08-21T18:25:32Z", 36.97, 360.0 - 87.67, 63.9},
        {"2024-04-08T18:17:18Z", 25.29, 360.0 - 104.14, 69.8},
    };
    for (const auto& row : table) {
        setSite(row.latitudeDeg, row.longitudeDeg, 0.0);
        const Instant time = *parseIsoText(row.time);
        EXPECT_LT(separationDeg(time), 0.01) << row.time;
        EXPECT_NEAR(elevationDeg("sun", time), row.sunElevationDeg, 0.3) << row.time;
        // Two hours later the shadow has left the place.
        EXPECT_GT(separationDeg(plusSeconds(time, 7200.0)), 0.6) << row.time;
    }
}

TEST_F(EclipseTest, TheMoonsParallaxMovesItAgainstItsPlaceFromTheEarthsCentre) {
    // Rising, the moon stands lower by its horizontal parallax, and its range is the distance of the centre.
    setSite(0.0, 0.0, 0.0);
    const Instant start = instantFromCalendar({2026, 4, 1, 0, 0, 0.0});
    const Instant rise = *engine.nextRise("moon", start).time;
    const TrackResult look = engine.track("moon", rise);
    const double distance = norm(engine.EngineStateVector().positionKm);
    EXPECT_NEAR(look.rangeKm, std::sqrt(distance * distance - 6378.137 * 6378.137), 0.5);
    EXPECT_NEAR(look.heightKm, distance - 6378.137, 22.0);
}

}  // namespace
}  // namespace vantrace
