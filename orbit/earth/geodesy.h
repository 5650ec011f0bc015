#pragma once

#include "orbit/vector3.h"

namespace vantrace {

namespace wgs84 {
// NIMA TR8350.2 (2000).
inline constexpr double equatorialRadiusKm = 6378.137;
inline constexpr double flattening = 1.0 / 298.257223563;
inline constexpr double eccentricity2 = flattening * (2.0 - flattening);
inline constexpr double polarRadiusKm = equatorialRadiusKm * (1.0 - flattening);
}  // namespace wgs84

/// A place by the WGS-84 ellipsoid: rad, north and east positive; km above the ellipsoid.
struct GeodeticPoint {
    double latitudeRad = 0.0;
    double longitudeRad = 0.0;
    double heightKm = 0.0;
};

/// Earth-fixed (ECEF) position, km.
Vector3 earthFixedPosition(const GeodeticPoint& point);

/// Geodetic latitude, as its sine and cosine, and height of an earth-fixed position.
struct GeodeticFoot {
    double sinLatitude;
    double cosLatitude;
    double heightKm;
};

/// From the ground up to better than 1e-9 rad and 1 mm (Bowring 1985). At the earth's centre the result is
/// the equator at -6378.137 km.
GeodeticFoot geodeticFoot(const Vector3& positionKm);

}  // namespace vantrace
