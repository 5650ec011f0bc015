#include "orbit/earth/look_angles.h"

#include <cmath>

#include "orbit/arc_tangent.h"
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

namespace {

/// An angle of -pi to pi as one of 0 up to 2 pi; a tiny negative one rounds up to the full turn, which is 0.
double positiveAngle(double angle) {
    const double positive = angle < 0.0 ? angle + twoPi : angle;
    return positive >= twoPi ? 0.0 : positive;
}

}  // namespace

Whereabouts whereabouts(const Observer& observer, const StateVector& state, const SinCos& greenwich) {
    const SinCos sidereal = observer.localSiderealTime(greenwich);
    const Vector3 site{observer.axisDistanceKm() * sidereal.cos, observer.axisDistanceKm() * sidereal.sin,
                       observer.equatorDistanceKm()};
    const Vector3 line = state.positionKm - site;
    const Vector3 lineRate =
        state.velocityKmS - Vector3{-earthRotationRadPerS * site.y, earthRotationRadPerS * site.x, 0.0};
    // Components along the meridian's plane, then east, north and up.
    const double outward = line.x * sidereal.cos + line.y * sidereal.sin;
    const double east = line.y * sidereal.cos - line.x * sidereal.sin;
    const double north = line.z * observer.cosLatitude() - outward * observer.sinLatitude();
    const double up = outward * observer.cosLatitude() + line.z * observer.sinLatitude();
    const double range = norm(line);

    const Vector3& r = state.positionKm;
    const Vector3 fixed{r.x * greenwich.cos + r.y * greenwich.sin, r.y * greenwich.cos - r.x * greenwich.sin,
                        r.z};
    const GeodeticFoot foot = geodeticFoot(fixed);
    const AnglePair around = arcTangents(east, north, fixed.y, fixed.x);
    const AnglePair above =
        arcTangents(up, std::sqrt(east * east + north * north), foot.sinLatitude, foot.cosLatitude);
    return {positiveAngle(around.first),
            above.first,
            range,
            range > 0.0 ? dot(line, lineRate) / range : 0.0,
            above.second,
            positiveAngle(around.second),
            foot.heightKm};
}

}  // namespace vantrace
