#include "orbit/sgp4/propagator.h"

namespace vantrace {

namespace {

/// From this period on sun, moon and resonance count.
constexpr double deepSpacePeriodMinutes = 225.0;

}  // namespace

Propagator::Propagator(const ElementSet& elements) : Propagator(elements, brouwerOrbit(elements)) {}

Propagator::Propagator(const ElementSet& elements, const BrouwerOrbit& orbit) : m_nearEarth(orbit) {
    if (twoPi / orbit.meanMotion >= deepSpacePeriodMinutes) {
        m_deepSpace = std::make_unique<DeepSpaceModel>(orbit, elements.epoch);
    }
}

}  // namespace vantrace
