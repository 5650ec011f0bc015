#pragma once

#include <algorithm>
#include <cmath>

#include "orbit/sgp4/brouwer_orbit.h"
#include "orbit/sgp4/gravity.h"
#include "orbit/sgp4/mean_state.h"
#include "orbit/sgp4/propagation_status.h"

namespace vantrace {

/// What drag has done to an orbit by some time.
struct DragEffect {
    double axisFactor;  ///< of the semi-major axis, before squaring
    double eccentricityDrop;
    double longitudeGain;      ///< in units of n0'' minutes
    double longitudeGainRate;  ///< its derivative

    /// See Propagated::rateMismatch.
    double rateMismatch() const {
        return (1.0 + longitudeGainRate) * axisFactor * axisFactor * axisFactor - 1.0;
    }
};

/// Acts alike on near and deep orbits: axis and eccentricity shrink, the longitude runs ahead. Tells when the
/// mean eccentricity leaves the bounds of the theory.
inline PropagationStatus applyDrag(const BrouwerOrbit& orbit, const DragEffect& drag, MeanState& mean) {
    constexpr double lowestEccentricity = -0.001;
    constexpr double smallestEccentricity = 1.0e-6;
    mean.semiMajorAxis *= drag.axisFactor * drag.axisFactor;
    mean.meanMotion = wgs72::ke / (mean.semiMajorAxis * std::sqrt(mean.semiMajorAxis));
    mean.eccentricity -= drag.eccentricityDrop;
    if (!(mean.eccentricity < 1.0 && mean.eccentricity >= lowestEccentricity)) {
        return PropagationStatus::meanEccentricityOutOfRange;
    }
    mean.eccentricity = std::max(mean.eccentricity, smallestEccentricity);
    mean.meanAnomaly += orbit.meanMotion * drag.longitudeGain;
    return PropagationStatus::ok;
}

}  // namespace vantrace
