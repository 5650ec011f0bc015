#pragma once

#include "orbit/sgp4/brouwer_orbit.h"
#include "orbit/sgp4/drag.h"
#include "orbit/sgp4/mean_state.h"
#include "orbit/sgp4/propagation_status.h"
#include "orbit/sgp4/short_period.h"

namespace vantrace {

/// SGP4: orbits with a period below 225 minutes.
class NearEarthModel {
  public:
    explicit NearEarthModel(const BrouwerOrbit& orbit);

    PropagationStatus propagate(double minutes, Propagated& result) const;

  private:
    BrouwerOrbit m_orbit;
    DragTerms m_drag;
    InclinationTerms m_inclination;
};

/// Mean elements after the secular effects of drag, which act alike on near and deep orbits: axis and
/// eccentricity shrink, the longitude runs ahead. Returns what the bounds of the theory say.
struct DragEffect {
    double axisFactor;  ///< of the semi-major axis before squaring
    double eccentricityDrop;
    double longitudeGain;  ///< in units of n0'' minutes
};

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
