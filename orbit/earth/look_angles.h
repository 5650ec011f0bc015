#pragma once

#include "orbit/earth/geodesy.h"
#include "orbit/sin_cos.h"
#include "orbit/state_vector.h"

namespace vantrace {

/// An observer on the earth, with what every look at the sky needs worked out once.
class Observer {
  public:
    Observer() : Observer(GeodeticPoint{}) {}
    explicit Observer(const GeodeticPoint& place);

    const GeodeticPoint& place() const { return m_place; }
    /// Distance of the observer from the polar axis and from the equator's plane, km.
    double axisDistanceKm() const { return m_axisDistanceKm; }
    double equatorDistanceKm() const { return m_equatorDistanceKm; }
    double sinLatitude() const { return m_latitude.sin; }
    double cosLatitude() const { return m_latitude.cos; }
    double longitudeRad() const { return m_place.longitudeRad; }
    /// Sine and cosine of the local sidereal time where Greenwich stands at `greenwich`.
    SinCos localSiderealTime(const SinCos& greenwich) const { return addAngles(greenwich, m_longitude); }

  private:
    GeodeticPoint m_place;
    SinCos m_latitude;
    SinCos m_longitude;
    double m_axisDistanceKm;
    double m_equatorDistanceKm;
};

/// Where an object stands: in the observer's sky, geometric, without refraction, and over the earth.
struct Whereabouts {
    double azimuthRad;  ///< from north through east, 0 up to 2 pi
    double elevationRad;
    double rangeKm;
    double rangeRateKmS;  ///< against the observer, who turns with the earth
    double latitudeRad;   ///< of the sub-point, geodetic
    double longitudeRad;  ///< of the sub-point, east positive, 0 up to 2 pi
    double heightKm;      ///< above the ellipsoid
};

/// `state` in the frame of the equator that `greenwich` (sidereal time of Greenwich) belongs to.
Whereabouts whereabouts(const Observer& observer, const StateVector& state, const SinCos& greenwich);

}  // namespace vantrace
