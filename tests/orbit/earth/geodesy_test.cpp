#include "orbit/earth/geodesy.h"

#include "orbit/elements/element_set.h"
#include "tests/support/testing.h"

namespace vantrace {
namespace {

constexpr double heightsKm[] = {-10.0, -1.0, 0.0,     0.002,   8.8,   100.0,
                                400.0, 2e3,  20200.0, 35786.0, 1.0e5, 4.0e5};

void expectRoundTrip(const GeodeticPoint& point) {
    const GeodeticFoot foot = geodeticFoot(earthFixedPosition(point));
    EXPECT_NEAR(foot.heightKm, point.heightKm, 1e-6 + 1e-14 * point.heightKm)
        << point.latitudeRad << " rad, " << point.heightKm << " km";
    EXPECT_NEAR(std::atan2(foot.sinLatitude, foot.cosLatitude), point.latitudeRad, 1e-9)
        << point.latitudeRad << " rad, " << point.heightKm << " km";
    EXPECT_NEAR(std::hypot(foot.sinLatitude, foot.cosLatitude), 1.0, 1e-15);
}

TEST(Geodesy, PositionsComeBackFromPoleToPoleAtAnyHeight) {
    for (const double heightKm : heightsKm) {
        for (int i = -1800; i <= 1800; ++i) {
            expectRoundTrip({i * 0.05 * radiansPerDegree, 0.1 * i, heightKm});
        }
    }
}

TEST(Geodesy, PositionsComeBackCloseToThePolesAndTheEquator) {
    for (const double heightKm : heightsKm) {
        for (const double aside : {0.0, 1e-12, 1e-9, 1e-6, 1e-4}) {
            for (const double sign : {1.0, -1.0}) {
                expectRoundTrip({sign * (pi / 2.0 - aside), 1.0, heightKm});
                expectRoundTrip({sign * aside, 2.0, heightKm});
            }
        }
    }
}

TEST(Geodesy, TheEllipsoidHasItsPublishedAxes) {
    const Vector3 equator = earthFixedPosition({0.0, 0.0, 0.0});
    EXPECT_DOUBLE_EQ(equator.x, 6378.137);
    const Vector3 east = earthFixedPosition({0.0, pi / 2.0, 0.0});
    EXPECT_DOUBLE_EQ(east.y, 6378.137);
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

}  // namespace
}  // namespace vantrace
