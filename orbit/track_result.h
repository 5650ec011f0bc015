#pragma once

#include <cstdint>

namespace vantrace {

/// What EngineTrack gives for one object at one instant, in the order of the engine's results.
struct TrackResult {
    bool descending = false;    ///< moving south
    double azimuthRad = 0.0;    ///< from north through east, 0 up to 2 pi
    double elevationRad = 0.0;  ///< geometric, without refraction
    double longitudeRad = 0.0;  ///< sub-point, east positive, 0 up to 2 pi
    double latitudeRad = 0.0;   ///< sub-point, geodetic (WGS-84)
    double rangeKm = 0.0;       ///< from the observer
    double rangeRateKmS = 0.0;  ///< positive receding, relative to the turning earth
    double heightKm = 0.0;      ///< above the WGS-84 ellipsoid
    double phaseAngleRad =
        0.0;                  ///< moon only: -pi new, -pi/2 first quarter, 0 full, pi/2 last quarter; else 0
    std::int16_t status = 0;  ///< always 0: a failure is an exception
};

}  // namespace vantrace
