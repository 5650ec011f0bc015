#include "orbit/passes/mover.h"

#include <algorithm>
#include <cmath>

#include "orbit/earth/earth_rotation.h"
#include "orbit/sgp4/gravity.h"

namespace vantrace {

SatelliteMover::SatelliteMover(Satellite& satellite, const Instant& start)
    : m_propagator(satellite.propagator()),
      m_startMinutes(minutesBetween(satellite.elements().epoch, start)),
      m_siderealTime(greenwichMeanSiderealTime(start)) {}

bool SatelliteMover::stateAt(double seconds, StateVector& state) {
    Propagated propagated;
    PropagationStatus status = m_propagator.propagate(m_startMinutes + seconds / 60.0, propagated);
    // A path whose velocity has nothing to do with its positions any more has no passes to tell.
    constexpr double greatestMismatch = 0.1;
    if (status == PropagationStatus::ok && !(std::abs(propagated.rateMismatch) < greatestMismatch)) {
        status = PropagationStatus::dragRanAway;
    }
    if (status != PropagationStatus::ok) {
        m_failure = status;
        return false;
    }
    state = propagated.state;
    return true;
}

Stride SatelliteMover::strideFrom(const StateVector& state) const {
    // Over a resting observer the height above the horizon plane of a Kepler orbit is a sine of the eccentric
    // anomaly: its turning points lie 180 degrees of it apart. Perturbations and the turning earth move them
    // by little as long as the earth turns by little within a stride.
    constexpr double mu = wgs72::gravitationKm3S2;
    constexpr double wideStride = pi / 3.0;
    constexpr double narrowStride = pi / 4.0;
    constexpr double nearlyCircular = 0.05;
    constexpr double longestS = 1800.0;  // the earth turns 7.5 degrees
    const double radius = norm(state.positionKm);
    const double axisInverse = 2.0 / radius - dot(state.velocityKmS, state.velocityKmS) / mu;
    if (!(axisInverse > 0.0)) {
        return {60.0, false, 0.0};
    }
    const double eCosE = 1.0 - radius * axisInverse;
    const double eSinE = dot(state.positionKm, state.velocityKmS) * std::sqrt(axisInverse / mu);
    const double meanMotion = std::sqrt(mu * axisInverse) * axisInverse;
    const double eccentricity = std::sqrt(eCosE * eCosE + eSinE * eSinE);
    const bool smooth = eccentricity < nearlyCircular;
    const double stride = smooth ? wideStride : narrowStride;
    const double meanStride = stride - eSinE * ((smooth ? 0.5 : std::sqrt(0.5)) - 1.0) -
                              eCosE * (smooth ? std::sqrt(0.75) : std::sqrt(0.5));
    constexpr double shortestS = 1.0;  // also where an absurd orbit gives no number
    return {std::max(shortestS, std::min(meanStride / meanMotion, longestS)), smooth,
            (1.0 + eccentricity) / axisInverse};
}

SkyBodyMover::SkyBodyMover(SkyBody body, const Instant& start)
    : m_body(body), m_start(start), m_siderealTime(bodyState(body, start).siderealTimeRad) {}

bool SkyBodyMover::stateAt(double seconds, StateVector& state) {
    state = bodyState(m_body, plusSeconds(m_start, seconds)).state;
    return true;
}

Stride SkyBodyMover::strideFrom(const StateVector& /*state*/) const {
    constexpr double strideS = 7200.0;  // 30 degrees of the day's turn
    return {strideS, true, 0.0};
}

}  // namespace vantrace
