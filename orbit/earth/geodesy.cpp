#include "orbit/earth/geodesy.h"

#include <cmath>

namespace vantrace {

Vector3 earthFixedPosition(const GeodeticPoint& point) {
    const double sinLatitude = std::sin(point.latitudeRad);
    const double cosLatitude = std::cos(point.latitudeRad);
    const double normal =
        wgs84::equatorialRadiusKm / std::sqrt(1.0 - wgs84::eccentricity2 * sinLatitude * sinLatitude);
    const double axisDistance = (normal + point.heightKm) * cosLatitude;
    return {axisDistance * std::cos(point.longitudeRad), axisDistance * std::sin(point.longitudeRad),
            (normal * (1.0 - wgs84::eccentricity2) + point.heightKm) * sinLatitude};
}

namespace {

/// sqrt(1 - x) for x up to 0.007: the binomial series, exact to 1e-15 there.
double rootOfOneMinus(double x) {
    return 1.0 - x * (1.0 / 2.0 +
                      x * (1.0 / 8.0 +
                           x * (1.0 / 16.0 + x * (5.0 / 128.0 + x * (7.0 / 256.0 + x * 21.0 / 1024.0)))));
}

}  // namespace

GeodeticFoot geodeticFoot(const Vector3& p) {
    constexpr double a = wgs84::equatorialRadiusKm;
    constexpr double b = wgs84::polarRadiusKm;
    constexpr double secondEccentricity2 = (a * a - b * b) / (b * b);
    const double axisDistance2 = p.x * p.x + p.y * p.y;
    const double axisDistance = std::sqrt(axisDistance2);
    const double radius = std::sqrt(axisDistance2 + p.z * p.z);
    if (radius < 1.0) {
        return {0.0, 1.0, radius - a};
    }
    // Bowring, "The accuracy of geodetic latitude and height equations", Survey Review 28 (1985): the
    // parametric latitude of the foot, good at any height, then one closed step. Sines and cosines stand as
    // they are, unscaled, so that the poles need no care.
    const double sinParametric = b * p.z * (radius + secondEccentricity2 * b);
    const double cosParametric = a * axisDistance * radius;
    const double parametricScale =
        1.0 / std::sqrt(sinParametric * sinParametric + cosParametric * cosParametric);
    const double s = sinParametric * parametricScale;
    const double c = cosParametric * parametricScale;
    const double north = p.z + secondEccentricity2 * b * s * s * s;
    const double outward = axisDistance - wgs84::eccentricity2 * a * c * c * c;
    const double scale = 1.0 / std::sqrt(north * north + outward * outward);
    const double sinLatitude = north * scale;
    const double cosLatitude = outward * scale;
    const double height = axisDistance * cosLatitude + p.z * sinLatitude -
                          a * rootOfOneMinus(wgs84::eccentricity2 * sinLatitude * sinLatitude);
    return {sinLatitude, cosLatitude, height};
}

}  // namespace vantrace
