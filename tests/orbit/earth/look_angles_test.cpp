// Look angles from first principles: the test puts an object where it must be seen.
#include "orbit/earth/look_angles.h"

#include "orbit/earth/earth_rotation.h"
#include "orbit/elements/element_set.h"
#include "tests/support/testing.h"

namespace vantrace {
namespace {

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
