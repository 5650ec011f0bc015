// Whether a pass can be seen: the program's own rules for sunlight and twilight.
#pragma once

#include "orbit/earth/geodesy.h"
#include "orbit/instant.h"
#include "orbit/orbit_engine.h"
#include "orbit/track_result.h"

namespace vantrace {

/// Elevation of the sun above the mathematical horizon of a place, degrees.
double sunElevationDeg(const GeodeticPoint& place, const Instant& time);

/// Sunlight reaches a satellite while the sun stands higher than -18 degrees at its sub-point, looked at from
/// the satellite's height. The kilometres of that height are taken as metres, as the position routine does.
bool isLit(const TrackResult& satellite, const Instant& time);

/// The sun from -18 to -6 degrees, both included.
bool isTwilight(double sunElevationDeg);

struct Sighting {
    bool sunlit = false;   ///< lit at the rise or at the set
    bool visible = false;  ///< sunlit, and twilight at the observer at the rise
};

/// The pass of an object over the engine's observer. Throws EngineError.
Sighting sightingOf(OrbitEngine& engine, std::string_view name, const Pass& pass);

}  // namespace vantrace
