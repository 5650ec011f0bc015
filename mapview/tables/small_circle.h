// Circles on the earth: footprint, line of day and night, seeds of the day.
#pragma once

#include "core/error_label.h"
#include "mapview/map_state.h"

namespace vantrace {

/// Radius of the earth of the map's arithmetic, km.
inline constexpr double mapEarthRadiusKm = 6378.14;

/// The points on the earth at one angle from a centre, by turning a circle about the x axis to its place.
class SmallCircle {
  public:
    /// What is at a distance from the earth's centre sees the circle as its horizon. Where the distance isn't
    /// above the earth's radius that is logged, and the circle is its centre. The label outlives this.
    SmallCircle(ErrorLabel& label, const MapPoint& centre, double distanceKm);

    /// The point at an angle around the centre, degrees; 0 is the northernmost of a circle that holds no
    /// pole, and the angle grows to the west. Where a point lies so exactly on a pole that its latitude has
    /// no value, that is logged and it has the latitude of the point asked for before.
    const MapPoint& at(double aroundDeg);

  private:
    struct Turn {
        double sine = 0.0;
        double cosine = 1.0;
    };
    static Turn turnOf(double angleRad);

    ErrorLabel& m_label;
    Turn m_latitude;
    Turn m_longitude;
    Turn m_radius;
    MapPoint m_point;
};

}  // namespace vantrace
