#pragma once

#include "orbit/sgp4/brouwer_orbit.h"

namespace vantrace {

/// Secular effects of drag in a power-density atmosphere (Lane and Hoots): coefficients of powers of the
/// minutes since epoch. Plain doubles, so that many satellites or many times can be worked out side by side.
struct DragTerms {
    double c1 = 0.0;
    double c4 = 0.0;
    double c5 = 0.0;
    double node2 = 0.0;    ///< node, t^2
    double perigee = 0.0;  ///< perigee, t, through the mean anomaly
    double anomaly = 0.0;  ///< factor of (1 + eta cos M)^3
    double eta = 0.0;
    double anomalyAtEpoch = 0.0;                    ///< (1 + eta cos M0)^3
    double sinMeanAnomaly = 0.0;                    ///< sin M0
    double d2 = 0.0, d3 = 0.0, d4 = 0.0;            ///< semi-major axis, t^2 to t^4
    double t2 = 0.0, t3 = 0.0, t4 = 0.0, t5 = 0.0;  ///< mean longitude, t^2 to t^5
    bool simple = true;  ///< linear axis and quadratic longitude only: perigee below 220 km or deep space
};

DragTerms dragTerms(const BrouwerOrbit& orbit, bool deepSpace);

}  // namespace vantrace
