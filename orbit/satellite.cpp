#include "orbit/satellite.h"

#include <cmath>

namespace vantrace {

namespace {

/// Argument of latitude in turns: the true one, brought to within half a turn of the mean one.
double latitudeArgumentTurns(const Propagated& propagated) {
    const double meanTurns = propagated.meanLatitudeArgument / twoPi;
    const Vector3& r = propagated.state.positionKm;
    const Vector3 h = cross(r, propagated.state.velocityKmS);
    const double towardsNode = std::hypot(h.x, h.y);  // of the angular momentum, its length times sin i
    constexpr double sineOfLostNode = 0.01;
    if (!(towardsNode > sineOfLostNode * norm(h))) {
        return meanTurns;
    }
    const double alongNode = (h.x * r.y - h.y * r.x) / towardsNode;
    const double acrossNode = r.z * norm(h) / towardsNode;
    const double trueTurns = std::atan2(acrossNode, alongNode) / twoPi;
    return trueTurns + std::round(meanTurns - trueTurns);
}

}  // namespace

Satellite::Satellite(const ElementSet& elements) : m_elements(elements), m_propagator(elements) {
    Propagated atEpoch;
    if (m_propagator.propagate(0.0, atEpoch) == PropagationStatus::ok) {
        m_turnsAtEpoch = std::floor(latitudeArgumentTurns(atEpoch));
    }
}

double Satellite::orbitCount(const Propagated& propagated) const {
    return m_elements.revolutionNumber + latitudeArgumentTurns(propagated) - m_turnsAtEpoch;
}

}  // namespace vantrace
