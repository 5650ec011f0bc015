#pragma once

#include <memory>

#include "orbit/elements/element_set.h"
#include "orbit/sgp4/deep_space.h"
#include "orbit/sgp4/near_earth.h"

namespace vantrace {

/// One satellite's orbit model, SGP4 or SDP4 by its period, WGS-72 constants. Made once for an element set.
class Propagator {
  public:
    explicit Propagator(const ElementSet& elements);

    /// TEME state at minutes from the set's epoch; the result means nothing on any status but `ok`. Not
    /// const: a resonant orbit keeps the steps of its integrator.
    PropagationStatus propagate(double minutes, Propagated& result) {
        return m_deepSpace ? m_deepSpace->propagate(minutes, result) : m_nearEarth.propagate(minutes, result);
    }
    bool isDeepSpace() const { return m_deepSpace != nullptr; }

  private:
    Propagator(const ElementSet& elements, const BrouwerOrbit& orbit);

    NearEarthModel m_nearEarth;
    std::unique_ptr<DeepSpaceModel> m_deepSpace;
};

}  // namespace vantrace
