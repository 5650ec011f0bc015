#include "orbit/sky/sky_body.h"

#include "orbit/sky/nutation.h"
#include "orbit/sky/sun.h"
#include "orbit/sky/time_scales.h"
#include "tests/orbit/engine_test.h"
#include "tests/support/testing.h"

namespace vantrace {
namespace {

constexpr double minuteS = 60.0;

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
        EXPECT_LT(std::abs(late), minuteS) << row.time << " is off by " << late << " s";
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
        EXPECT_LT(std::abs(late), 1.5 * minuteS) << row.time << " is off by " << late << " s";
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

TEST_F(EclipseTest, RatesBelongToThePlaces) {
    setSite(52.0, 5.0, 0.0);
    for (const std::string name : {"sun", "moon"}) {
        for (int day = 0; day < 60; day += 3) {
            const Instant time = plusSeconds(instantFromCalendar({2026, 5, 1, 3, 0, 0.0}), day * 83000.0);
            const double before = engine.track(name, plusSeconds(time, -30.0)).rangeKm;
            const double after = engine.track(name, plusSeconds(time, 30.0)).rangeKm;
            EXPECT_NEAR(engine.track(name, time).rangeRateKmS, (after - before) / 60.0, 5e-4) << name;
        }
    }
}

}  // namespace
}  // namespace vantrace
