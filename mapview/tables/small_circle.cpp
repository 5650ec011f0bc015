#include "mapview/tables/small_circle.h"

#include <cmath>

#include "orbit/angles.h"

namespace vantrace {

SmallCircle::SmallCircle(ErrorLabel& label, const MapPoint& centre, double distanceKm)
    : m_label(label),
      m_latitude(turnOf(DegToRad(centre.Latitude))),
      m_longitude(turnOf(DegToRad(centre.Longitude))) {
    m_label.step([&] { m_radius = turnOf(ArcCos(mapEarthRadiusKm / distanceKm)); });
}

SmallCircle::Turn SmallCircle::turnOf(double angleRad) {
    return {std::sin(angleRad), std::cos(angleRad)};
}

const MapPoint& SmallCircle::at(double aroundDeg) {
    const Turn around = turnOf(2.0 * programPi * aroundDeg / 360.0);
    // On a circle about the x axis, then turned up to the latitude and round to the longitude.
    const double x = m_radius.cosine;
    const double y = m_radius.sine * around.sine;
    const double z = m_radius.sine * around.cosine;
    const double x1 = x * m_latitude.cosine - z * m_latitude.sine;
    const double z1 = x * m_latitude.sine + z * m_latitude.cosine;
    const double x2 = x1 * m_longitude.cosine - y * m_longitude.sine;
    const double y2 = x1 * m_longitude.sine + y * m_longitude.cosine;
    m_point.Longitude = RadToDeg(ArcTan2(y2, x2));
    m_label.step([&] { m_point.Latitude = RadToDeg(ArcSin(z1)); });
    return m_point;
}

}  // namespace vantrace
