#include "orbit/earth/geodesy.h"

#include <cmath>

#include "orbit/elements/element_set.h"

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

GeodeticPoint geodeticPoint(const Vector3& p) {
    constexpr double a = wgs84::equatorialRadiusKm;
    constexpr double b = wgs84::polarRadiusKm;
    constexpr double secondEccentricity2 = (a * a - b * b) / (b * b);
    const double axisDistance = std::hypot(p.x, p.y);
    const double radius = std::hypot(axisDistance, p.z);
    GeodeticPoint point;
    if (axisDistance > 0.0) {
        const double longitude = std::atan2(p.y, p.x);
        point.longitudeRad = longitude < 0.0 ? longitude + twoPi : longitude;
        if (point.longitudeRad >= twoPi) {
            point.longitudeRad = 0.0;
        }
    }
    if (radius < 1.0) {
        point.heightKm = radius - a;
        return point;
    }
    // Bowring, "The accuracy of geodetic latitude and height equations", Survey Review 28 (1985): the parametric
    // latitude of the foot, good at any height, then one closed step; twice, for what lies deep or far.
    double tanParametric = (b * p.z / (a * axisDistance)) * (1.0 + secondEccentricity2 * b / radius);
    double tanLatitude = 0.0;
    for (int step = 0; step < 2; ++step) {
        const double cosParametric = 1.0 / std::sqrt(1.0 + tanParametric * tanParametric);
        const double sinParametric =
            axisDistance > 0.0 ? tanParametric * cosParametric : std::copysign(1.0, p.z);
        const double numerator = p.z + secondEccentricity2 * b * sinParametric * sinParametric * sinParametric;
        const double denominator =
            axisDistance - wgs84::eccentricity2 * a * cosParametric * cosParametric * cosParametric;
        tanLatitude = numerator / denominator;
        tanParametric = (1.0 - wgs84::flattening) * tanLatitude;
    }
    if (axisDistance <= 0.0) {
        point.latitudeRad = std::copysign(pi / 2.0, p.z);
        point.heightKm = std::abs(p.z) - b;
        return point;
    }
    const double cosLatitude = 1.0 / std::sqrt(1.0 + tanLatitude * tanLatitude);
    const double sinLatitude = tanLatitude * cosLatitude;
    point.latitudeRad = std::atan(tanLatitude);
    point.heightKm = axisDistance * cosLatitude + p.z * sinLatitude -
                     a * std::sqrt(1.0 - wgs84::eccentricity2 * sinLatitude * sinLatitude);
    return point;
}

}  // namespace vantrace
