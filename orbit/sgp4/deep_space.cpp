#include "orbit/sgp4/deep_space.h"

#include <cmath>

#include "orbit/earth/earth_rotation.h"
#include "orbit/sgp4/drag_effect.h"
#include "orbit/sgp4/short_period.h"

namespace vantrace {

namespace {

/// (ke / n)^(2/3): resonance moves the mean motion so little that a short series from its value at epoch is
/// exact.
double resonantAxis(const BrouwerOrbit& orbit, double meanMotion) {
    const double d = (meanMotion - orbit.meanMotion) / orbit.meanMotion;
    if (std::abs(d) < 1.0e-3) {
        return orbit.semiMajorAxis *
               (1.0 - d * (2.0 / 3.0 - d * (5.0 / 9.0 - d * (40.0 / 81.0 - d * (110.0 / 243.0)))));
    }
    const double root = std::cbrt(wgs72::ke / meanMotion);
    return root * root;
}

}  // namespace

DeepSpaceModel::DeepSpaceModel(const BrouwerOrbit& orbit, const Instant& epoch)
    : m_orbit(orbit),
      m_drag(dragTerms(orbit, true)),
      m_luniSolar(luniSolarTerms(orbit, epoch.julianDate())),
      m_resonance(Resonance::of(orbit, m_luniSolar.rates, greenwichMeanSiderealTime(epoch))) {}

PropagationStatus DeepSpaceModel::propagate(double minutes, Propagated& result) {
    const double t = minutes;
    const SecularRates& rates = m_luniSolar.rates;
    MeanState mean;
    mean.semiMajorAxis = m_orbit.semiMajorAxis;
    mean.eccentricity = m_orbit.eccentricity + rates.eccentricity * t;
    mean.inclination = m_orbit.inclination + rates.inclination * t;
    mean.meanAnomaly = m_orbit.meanAnomaly + (m_orbit.meanAnomalyRate + rates.meanAnomaly) * t;
    mean.argumentOfPerigee = m_orbit.argumentOfPerigee + (m_orbit.perigeeRate + rates.perigee) * t;
    mean.node = m_orbit.node + (m_orbit.nodeRate + rates.node) * t + m_drag.node2 * t * t;
    if (m_resonance) {
        const Resonance::Motion motion = m_resonance->at(t);
        if (!(motion.meanMotion > 0.0)) {
            return PropagationStatus::meanMotionNotPositive;
        }
        mean.semiMajorAxis = resonantAxis(m_orbit, motion.meanMotion);
        mean.meanAnomaly = m_resonance->meanAnomaly(motion.longitude, t, mean.node, mean.argumentOfPerigee);
    }
    const DragEffect drag{1.0 - m_drag.c1 * t, m_orbit.bStar * m_drag.c4 * t, m_drag.t2 * t * t,
                          2.0 * m_drag.t2 * t};
    if (const PropagationStatus status = applyDrag(m_orbit, drag, mean); status != PropagationStatus::ok) {
        return status;
    }

    result.meanLatitudeArgument = mean.meanAnomaly + mean.argumentOfPerigee;
    result.rateMismatch = drag.rateMismatch();

    // Lyddane's form takes the node itself, not its sine: it must stand within a turn of 0, signed as it ran.
    PeriodicElements moved{mean.eccentricity, mean.inclination, withoutTurns(mean.node),
                           withoutTurns(mean.argumentOfPerigee), withoutTurns(mean.meanAnomaly)};
    addPeriodics(m_luniSolar, t, moved);
    if (moved.inclination < 0.0) {
        moved.inclination = -moved.inclination;
        moved.node += pi;
        moved.argumentOfPerigee -= pi;
    }
    if (moved.eccentricity < 0.0 || moved.eccentricity > 1.0) {
        return PropagationStatus::eccentricityOutOfRange;
    }
    mean.eccentricity = moved.eccentricity;
    mean.inclination = moved.inclination;
    mean.node = moved.node;
    mean.argumentOfPerigee = moved.argumentOfPerigee;
    mean.meanAnomaly = moved.meanAnomaly;
    const SinCosPair angles = sinCos(mean.argumentOfPerigee, mean.node);
    const SinCos inclination = sinCos(mean.inclination);
    return stateFromMean(mean, InclinationTerms::of(inclination.sin, inclination.cos), angles.first,
                         angles.second, result.state);
}

}  // namespace vantrace
