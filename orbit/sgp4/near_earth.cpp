#include "orbit/sgp4/near_earth.h"

#include "orbit/sgp4/drag_effect.h"

namespace vantrace {

NearEarthModel::NearEarthModel(const BrouwerOrbit& orbit)
    : m_orbit(orbit),
      m_drag(dragTerms(orbit, false)),
      m_inclination(InclinationTerms::of(orbit.sinInclination, orbit.cosInclination)) {}

PropagationStatus NearEarthModel::propagate(double minutes, Propagated& result) const {
    const double t = minutes;
    const double t2 = t * t;
    MeanState mean;
    mean.semiMajorAxis = m_orbit.semiMajorAxis;
    mean.eccentricity = m_orbit.eccentricity;
    mean.inclination = m_orbit.inclination;
    mean.meanAnomaly = m_orbit.meanAnomaly + m_orbit.meanAnomalyRate * t;
    mean.argumentOfPerigee = m_orbit.argumentOfPerigee + m_orbit.perigeeRate * t;
    mean.node = m_orbit.node + m_orbit.nodeRate * t + m_drag.node2 * t2;

    // Sines and cosines are taken in pairs, in the order in which their angles come to stand.
    DragEffect drag{1.0 - m_drag.c1 * t, m_orbit.bStar * m_drag.c4 * t, m_drag.t2 * t2, 2.0 * m_drag.t2 * t};
    SinCos perigee{};
    SinCos node{};
    if (m_drag.simple) {
        const SinCosPair angles = sinCos(mean.argumentOfPerigee, mean.node);
        perigee = angles.first;
        node = angles.second;
    } else {
        const SinCosPair beforeShift = sinCos(mean.meanAnomaly, mean.node);
        const double periodic = 1.0 + m_drag.eta * beforeShift.first.cos;
        const double shift =
            m_drag.perigee * t + m_drag.anomaly * (periodic * periodic * periodic - m_drag.anomalyAtEpoch);
        mean.meanAnomaly += shift;
        mean.argumentOfPerigee -= shift;
        const SinCosPair afterShift = sinCos(mean.meanAnomaly, mean.argumentOfPerigee);
        drag.axisFactor -= t2 * (m_drag.d2 + t * (m_drag.d3 + t * m_drag.d4));
        drag.eccentricityDrop += m_orbit.bStar * m_drag.c5 * (afterShift.first.sin - m_drag.sinMeanAnomaly);
        drag.longitudeGain += t2 * t * (m_drag.t3 + t * (m_drag.t4 + t * m_drag.t5));
        drag.longitudeGainRate += t2 * (3.0 * m_drag.t3 + t * (4.0 * m_drag.t4 + t * 5.0 * m_drag.t5));
        perigee = afterShift.second;
        node = beforeShift.second;
    }
    const PropagationStatus status = applyDrag(m_orbit, drag, mean);
    if (status != PropagationStatus::ok) {
        return status;
    }
    result.meanLatitudeArgument = mean.meanAnomaly + mean.argumentOfPerigee;
    result.rateMismatch = drag.rateMismatch();
    return stateFromMean(mean, m_inclination, perigee, node, result.state);
}

}  // namespace vantrace
