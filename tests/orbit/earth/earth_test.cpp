#include "orbit/earth/earth_rotation.h"
#include "orbit/earth/geodesy.h"
#include "orbit/earth/look_angles.h"
#include "orbit/elements/element_set.h"
#include "tests/support/testing.h"

namespace vantrace {
namespace {

// Meeus, "Astronomical Algorithms", 2nd ed. (1998), examples 12.a and 12.b.
TEST(EarthRotation, SiderealTimeIsThatOfThePublishedExamples) {
    const auto secondsAt = [](int hour, int minute) {
        return greenwichMeanSiderealTime(instantFromCalendar({1987, 4, 10, hour, minute, 0.0})) / twoPi *
               secondsPerDay;
    };
    EXPECT_NEAR(secondsAt(0, 0), 13 * 3600.0 + 10 * 60.0 + 46.3668, 6e-5);
    EXPECT_NEAR(secondsAt(19, 21), 8 * 3600.0 + 34 * 60.0 + 57.0896, 6e-5);
}

TEST(EarthRotation, SiderealTimeRunsAtItsPublishedRateWithoutASeam) {
    for (const int year : {1957, 2000, 2026, 2056}) {
        const Instant start = instantFromCalendar({year, 3, 1, 23, 59, 0.0});
        const double before = greenwichMeanSiderealTime(start);
        for (const double seconds : {1e-4, 1.0, 59.5, 60.0, 61.0, 3600.0, 43200.0}) {
            const double after = greenwichMeanSiderealTime(plusSeconds(start, seconds));
            EXPECT_TRUE(after >= 0.0 && after < twoPi);
            const double turned = std::remainder(after - before - earthRotationRadPerS * seconds, twoPi);
            EXPECT_NEAR(turned, 0.0, seconds < 1.0 ? 1e-12 : 2e-9) << year << " after " << seconds;
        }
    }
}

void expectRoundTrip(const GeodeticPoint& point) {
    SCOPED_TRACE(std::to_string(point.latitudeRad) + " rad, " + std::to_string(point.heightKm) + " km");
    const GeodeticFoot foot = geodeticFoot(earthFixedPosition(point));
    EXPECT_NEAR(foot.heightKm, point.heightKm, 1e-6 + 1e-14 * point.heightKm);
    EXPECT_NEAR(std::atan2(foot.sinLatitude, foot.cosLatitude), point.latitudeRad, 1e-9);
    EXPECT_NEAR(std::hypot(foot.sinLatitude, foot.cosLatitude), 1.0, 1e-15);
}

TEST(Geodesy, PositionsComeBackFromPoleToPoleAtAnyHeight) {
    for (const double heightKm :
         {-10.0, -1.0, 0.0, 0.002, 8.8, 100.0, 400.0, 2e3, 20200.0, 35786.0, 1.0e5, 4.0e5}) {
        for (int i = -1800; i <= 1800; ++i) {
            expectRoundTrip({i * 0.05 * radiansPerDegree, 0.1 * i, heightKm});
        }
        // Close to the poles and the equator.
        for (const double aside : {0.0, 1e-12, 1e-9, 1e-6, 1e-4}) {
            for (const double sign : {1.0, -1.0}) {
                expectRoundTrip({sign * (pi / 2.0 - aside), 1.0, heightKm});
                expectRoundTrip({sign * aside, 2.0, heightKm});
            }
        }
    }
}

TEST(Geodesy, TheEllipsoidHasItsPublishedAxes) {
    EXPECT_DOUBLE_EQ(earthFixedPosition({0.0, 0.0, 0.0}).x, 6378.137);
    EXPECT_DOUBLE_EQ(earthFixedPosition({0.0, pi / 2.0, 0.0}).y, 6378.137);
    const Vector3 pole = earthFixedPosition({pi / 2.0, 0.0, 0.0});
    EXPECT_NEAR(pole.z, 6356.752314245, 1e-9);
    EXPECT_NEAR(pole.x, 0.0, 1e-9);
}

TEST(Geodesy, TheVerticalStandsOnTheEllipsoid) {
    // Going up a kilometre moves the position a kilometre along the zenith, and across no meridian.
    for (int i = -89; i <= 89; i += 7) {
        const double latitude = i * radiansPerDegree;
        const Vector3 up =
            earthFixedPosition({latitude, 0.7, 1.0}) - earthFixedPosition({latitude, 0.7, 0.0});
        EXPECT_NEAR(up.x, std::cos(latitude) * std::cos(0.7), 1e-11);
        EXPECT_NEAR(up.y, std::cos(latitude) * std::sin(0.7), 1e-11);
        EXPECT_NEAR(up.z, std::sin(latitude), 1e-11);
    }
}

TEST(Geodesy, TheEarthsCentreIsNoTrap) {
    for (const double z : {0.0, 1e-300, -0.5, 0.5}) {
        const GeodeticFoot foot = geodeticFoot({0.0, 0.0, z});
        EXPECT_TRUE(std::isfinite(foot.heightKm) && std::isfinite(foot.sinLatitude));
        EXPECT_NEAR(foot.heightKm, -6378.137, 25.0);
    }
}

std::vector<GeodeticPoint> sites() {
    return {{0.0, 0.0, 0.0},       {0.9, 0.1, 0.05},       {-0.6, 3.1, 2.0}, {pi / 2.0, 0.0, 0.0},
            {-pi / 2.0, 1.0, 2.8}, {0.3, pi, 0.0},         {0.3, -pi, 0.0},  {1.2, 6.2, 0.1},
            {-1.5, 4.0, 400.0},    {0.001, -0.0001, -0.42}};
}

struct Axes {
    Vector3 east, north, up;
};

/// Earth-fixed directions at a site.
Axes axesAt(const GeodeticPoint& site) {
    const double sinB = std::sin(site.latitudeRad), cosB = std::cos(site.latitudeRad);
    const double sinL = std::sin(site.longitudeRad), cosL = std::cos(site.longitudeRad);
    return {{-sinL, cosL, 0.0}, {-sinB * cosL, -sinB * sinL, cosB}, {cosB * cosL, cosB * sinL, sinB}};
}

/// The earth-fixed position turned into the frame that the state stands in.
Vector3 turned(const Vector3& fixed, double sidereal) {
    return {fixed.x * std::cos(sidereal) - fixed.y * std::sin(sidereal),
            fixed.x * std::sin(sidereal) + fixed.y * std::cos(sidereal), fixed.z};
}

/// An object that rests over the turning earth.
Whereabouts look(const GeodeticPoint& site, const Vector3& fixed, double sidereal) {
    const Vector3 r = turned(fixed, sidereal);
    const Vector3 v{-earthRotationRadPerS * r.y, earthRotationRadPerS * r.x, 0.0};
    return whereabouts(Observer(site), {r, v}, sinCos(sidereal));
}

double angleBetween(double a, double b) {
    return std::abs(std::remainder(a - b, twoPi));
}

TEST(LookAngles, AnObjectIsSeenWhereItWasPut) {
    for (const GeodeticPoint& site : sites()) {
        const Axes axes = axesAt(site);
        for (double azimuth = 0.0; azimuth < twoPi; azimuth += pi / 12.0) {
            for (const double elevation : {-1.2, -0.3, 0.0, 0.001, 0.5, 1.2, 1.5}) {
                for (const double rangeKm : {2.0, 900.0, 40000.0}) {
                    const Vector3 line = rangeKm * std::cos(elevation) * std::sin(azimuth) * axes.east +
                                         rangeKm * std::cos(elevation) * std::cos(azimuth) * axes.north +
                                         rangeKm * std::sin(elevation) * axes.up;
                    const Whereabouts seen = look(site, earthFixedPosition(site) + line, 2.345);
                    EXPECT_NEAR(seen.elevationRad, elevation, 2e-11);
                    EXPECT_LT(angleBetween(seen.azimuthRad, azimuth), 2e-11 / std::cos(elevation));
                    EXPECT_TRUE(seen.azimuthRad >= 0.0 && seen.azimuthRad < twoPi);
                    EXPECT_NEAR(seen.rangeKm, rangeKm, 1e-10 * (1.0 + rangeKm));
                    EXPECT_NEAR(seen.rangeRateKmS, 0.0, 1e-11);
                }
            }
        }
    }
}

TEST(LookAngles, OverTheSiteItselfTheSubPointIsTheSite) {
    for (const GeodeticPoint& site : sites()) {
        GeodeticPoint above = site;
        above.heightKm += 800.0;
        const Whereabouts seen = look(site, earthFixedPosition(above), 1.0);
        EXPECT_NEAR(seen.elevationRad, pi / 2.0, 1e-7);
        EXPECT_NEAR(seen.latitudeRad, site.latitudeRad, 1e-9);
        EXPECT_NEAR(seen.heightKm, above.heightKm, 1e-6);
        EXPECT_NEAR(seen.rangeKm, 800.0, 1e-9);
        if (std::abs(site.latitudeRad) < 1.57) {
            EXPECT_LT(angleBetween(seen.longitudeRad, site.longitudeRad), 1e-9);
        }
        EXPECT_TRUE(seen.longitudeRad >= 0.0 && seen.longitudeRad < twoPi);
    }
}

TEST(LookAngles, BelowItsOwnSubPointAnObjectIsStraightUp) {
    std::mt19937 random(31);
    std::uniform_real_distribution<double> part(-1.0, 1.0);
    for (int i = 0; i < 2000; ++i) {
        const Vector3 direction{part(random), part(random), part(random)};
        const double radius = 6500.0 + 20000.0 * std::abs(part(random));
        const Vector3 fixed = (radius / norm(direction)) * direction;
        const double sidereal = 3.0 * part(random);
        const Whereabouts first = look({}, fixed, sidereal);
        const Whereabouts below = look({first.latitudeRad, first.longitudeRad, 0.0}, fixed, sidereal);
        EXPECT_NEAR(below.elevationRad, pi / 2.0, 1e-6);
        EXPECT_NEAR(below.rangeKm, first.heightKm, 1e-6);
    }
}

TEST(LookAngles, AzimuthAndLongitudeNeverReachAWholeTurn) {
    // Due north and over Greenwich, a hair to the west, down to the smallest double.
    for (const double west : {0.0, 1e-3, 1e-9, 1e-13, 1e-16, 1e-18, 1e-300, 5e-324}) {
        for (const double sidereal : {0.0, 1.0, twoPi}) {
            const Whereabouts seen = look({0.5, 0.0, 0.0}, {6000.0, -west, 6000.0}, sidereal);
            EXPECT_TRUE(seen.azimuthRad >= 0.0 && seen.azimuthRad < twoPi) << west;
            EXPECT_TRUE(seen.longitudeRad >= 0.0 && seen.longitudeRad < twoPi) << west;
        }
    }
}

TEST(LookAngles, TheRangeRateIsTheRateOfTheRange) {
    std::mt19937 random(32);
    std::uniform_real_distribution<double> part(-1.0, 1.0);
    for (const GeodeticPoint& site : sites()) {
        const Observer observer(site);
        for (int i = 0; i < 200; ++i) {
            const Vector3 r{9000.0 * part(random), 9000.0 * part(random), 9000.0 * part(random)};
            const Vector3 v{7.0 * part(random), 7.0 * part(random), 7.0 * part(random)};
            const auto rangeAt = [&](double seconds) {
                return whereabouts(observer, {r + seconds * v, v},
                                   sinCos(1.0 + earthRotationRadPerS * seconds))
                    .rangeKm;
            };
            if (rangeAt(0.0) < 1500.0) continue;
            const double rate = (rangeAt(0.05) - rangeAt(-0.05)) / 0.1;
            EXPECT_NEAR(whereabouts(observer, {r, v}, sinCos(1.0)).rangeRateKmS, rate, 1e-7);
        }
    }
}

TEST(LookAngles, AtTheObserverItselfNothingIsDividedByZero) {
    for (const GeodeticPoint& site : sites()) {
        const Whereabouts seen = look(site, earthFixedPosition(site), 0.5);
        EXPECT_NEAR(seen.rangeKm, 0.0, 1e-9);
        for (const double value : {seen.azimuthRad, seen.elevationRad, seen.rangeRateKmS, seen.latitudeRad,
                                   seen.longitudeRad, seen.heightKm}) {
            EXPECT_TRUE(std::isfinite(value));
        }
    }
}

}  // namespace
}  // namespace vantrace
