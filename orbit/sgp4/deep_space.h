#pragma once

#include <optional>

#include "orbit/sgp4/brouwer_orbit.h"
#include "orbit/sgp4/drag.h"
#include "orbit/sgp4/luni_solar.h"
#include "orbit/sgp4/mean_state.h"
#include "orbit/sgp4/propagation_status.h"
#include "orbit/sgp4/resonance.h"

namespace vantrace {

/// SDP4: orbits with a period of 225 minutes and more, pulled by sun and moon, some in step with the earth's
/// turning.
class DeepSpaceModel {
  public:
    DeepSpaceModel(const BrouwerOrbit& orbit, const Instant& epoch);

    PropagationStatus propagate(double minutes, Propagated& result);

  private:
    BrouwerOrbit m_orbit;
    DragTerms m_drag;
    LuniSolarTerms m_luniSolar;
    std::optional<Resonance> m_resonance;
};

}  // namespace vantrace
