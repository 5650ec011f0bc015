// A satellite's path in steps of a few seconds: what a pass search is measured against. Positions alone are
// used, with formulas of the test's own.
#pragma once

#include <vector>

#include "orbit/earth/geodesy.h"
#include "orbit/sgp4/propagator.h"

namespace vantrace {

struct DenseCrossing {
    double seconds = 0.0;  ///< from the start
    bool rise = false;
    double ratePerS = 0.0;  ///< of the elevation's sine there
};

class DensePath {
  public:
    DensePath(const ElementSet& elements, const Instant& start, double days);

    double spanS() const { return m_spanS; }
    /// Sine of the elevation at any moment of the span.
    double sineAt(const GeodeticPoint& site, double seconds);
    /// Every crossing of the horizon within the span, however close together two of them lie.
    std::vector<DenseCrossing> crossings(const GeodeticPoint& site);
    /// Greatest sine of the elevation between two moments.
    double greatestSine(const GeodeticPoint& site, double fromS, double toS);

  private:
    Vector3 fixedPositionAt(double seconds);
    double extremeBetween(const GeodeticPoint& site, double fromS, double toS, double side);
    DenseCrossing crossingBetween(const GeodeticPoint& site, double fromS, double toS);

    Propagator m_propagator;
    Instant m_start;
    double m_startMinutes;
    double m_spanS;
    std::vector<Vector3> m_positions;
};

}  // namespace vantrace
