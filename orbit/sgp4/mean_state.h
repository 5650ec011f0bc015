#pragma once

#include "orbit/state_vector.h"

namespace vantrace {

/// Mean elements at a moment, on their way to a position. Earth radii, rad, rad/min. The angles may stand any
/// number of turns away from 0 up to 2 pi.
struct MeanState {
    double semiMajorAxis;
    double meanMotion;
    double eccentricity;
    double inclination;
    double node;
    double argumentOfPerigee;
    double meanAnomaly;
};

/// What a propagation gives.
struct Propagated {
    StateVector state;  ///< TEME, km and km/s
    double meanLatitudeArgument =
        0.0;  ///< mean anomaly and argument of perigee, whole turns since epoch kept; rad
    /// How far, as a fraction, the rate of the mean longitude has come apart from the mean motion: small
    /// while the polynomials of the drag hold, large when the set is extrapolated beyond all sense.
    double rateMismatch = 0.0;
};

}  // namespace vantrace
