#pragma once

#include "orbit/vector3.h"

namespace vantrace {

/// Position and velocity in the TEME frame (true equator, mean equinox of date), km and km/s.
struct StateVector {
    Vector3 positionKm;
    Vector3 velocityKmS;
};

}  // namespace vantrace
