// The part of the earth that sees a satellite.
#pragma once

namespace vantrace {

struct MapState;
struct Services;

/// The circle within which a satellite at that height (km) above that sub-point (degrees, WEST) is above the
/// horizon, into `FootprintPoints`: a point for every two degrees around the centre, each stored twice. At a
/// height of 0 or below all points fall on the sub-point, and that is logged.
void CalcFootprint(MapState& map, Services& services, double Height, double Latitude, double Longitude);

}  // namespace vantrace
