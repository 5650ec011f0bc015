#pragma once

#include "orbit/instant.h"
#include "orbit/state_vector.h"

namespace vantrace {

enum class SkyBody { sun, moon };

/// A body of the sky as the engine tracks it.
struct BodyState {
    StateVector state;             ///< geocentric, true equator and equinox of date; km, km/s
    double siderealTimeRad = 0.0;  ///< Greenwich apparent sidereal time that belongs to this frame
    double phaseAngleRad = 0.0;    ///< moon: -pi new, -pi/2 first quarter, 0 full, pi/2 last quarter; sun: 0
};

BodyState bodyState(SkyBody body, const Instant& utc);

}  // namespace vantrace
