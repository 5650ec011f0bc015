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

}  // namespace vantrace
