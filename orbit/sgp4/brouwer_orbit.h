#pragma once

#include "orbit/elements/element_set.h"

namespace vantrace {

/// The orbit at epoch as the theory uses it: Brouwer's mean motion instead of the published Kozai one, and
/// the functions of eccentricity and inclination that every part of the theory needs. Lengths in earth radii,
/// times in minutes. Names of terms as in Hoots, Schumacher and Glover (2004), J. Guidance, Control and
/// Dynamics 27(2).
struct BrouwerOrbit {
    double meanMotion = 0.0;     ///< n0'', rad/min
    double semiMajorAxis = 0.0;  ///< a0''
    double eccentricity = 0.0;
    double inclination = 0.0;
    double argumentOfPerigee = 0.0;
    double node = 0.0;
    double meanAnomaly = 0.0;
    double bStar = 0.0;
    double sinInclination = 0.0;
    double cosInclination = 0.0;
    double beta2 = 0.0;          ///< 1 - e^2
    double beta = 0.0;           ///< sqrt(1 - e^2)
    double perigeeRadius = 0.0;  ///< a0'' (1 - e)

    /// Secular rates by J2 and J4, rad/min (mean anomaly, perigee, node), and the node's first-order part
    /// alone.
    double meanAnomalyRate = 0.0;
    double perigeeRate = 0.0;
    double nodeRate = 0.0;
    double nodeRateFirstOrder = 0.0;
};

/// Recovers Brouwer's mean motion and semi-major axis (Spacetrack Report No. 3, section 6) and the secular
/// rates.
BrouwerOrbit brouwerOrbit(const ElementSet& elements);

}  // namespace vantrace
