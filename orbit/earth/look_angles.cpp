#include "orbit/earth/look_angles.h"

#include <cmath>

#include "orbit/earth/earth_rotation.h"
#include "orbit/elements/element_set.h"

namespace vantrace {

Observer::Observer(const GeodeticPoint& place)
    : m_place(place),
      m_latitude{std::sin(place.latitudeRad), std::cos(place.latitudeRad)},
      m_longitude{std::sin(place.longitudeRad), std::cos(place.longitudeRad)} {
    const Vector3 onMeridian = earthFixedPosition({place.latitudeRad, 0.0, place.heightKm});
    m_axisDistanceKm = onMeridian.x;
    m_equatorDistanceKm = onMeridian.z;
}

LookAngles lookAngles(const Observer& observer, const StateVector& state, const SinCos& greenwich) {
    const SinCos sidereal = observer.localSiderealTime(greenwich);
    const Vector3 site{observer.axisDistanceKm() * sidereal.cos, observer.axisDistanceKm() * sidereal.sin,
                       observer.equatorDistanceKm()};
    const Vector3 line = state.positionKm - site;
    const Vector3 lineRate = state.velocityKmS - Vector3{-earthRotationRadPerS * site.y,
                                                         earthRotationRadPerS * site.x, 0.0};
    // Components along the meridian's plane, then south-north and up.
    const double outward = line.x * sidereal.cos + line.y * sidereal.sin;
    const double east = -line.x * sidereal.sin + line.y * sidereal.cos;
    const double north = line.z * observer.cosLatitude() - outward * observer.sinLatitude();
    const double up = outward * observer.cosLatitude() + line.z * observer.sinLatitude();
    LookAngles look{};
    look.rangeKm = norm(line);
    look.rangeRateKmS = look.rangeKm > 0.0 ? dot(line, lineRate) / look.rangeKm : 0.0;
    const double azimuth = std::atan2(east, north);
    look.azimuthRad = azimuth < 0.0 ? azimuth + twoPi : azimuth;
    if (look.azimuthRad >= twoPi) {  // a tiny negative angle rounds up to the full turn
        look.azimuthRad = 0.0;
    }
    look.elevationRad = std::atan2(up, std::sqrt(east * east + north * north));
    return look;
}

}  // namespace vantrace
