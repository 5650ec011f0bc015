#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "orbit/sgp4/brouwer_orbit.h"
#include "orbit/sgp4/luni_solar.h"

namespace vantrace {

/// Resonance with the turning earth: one-day orbits, and half-day orbits with an eccentricity of 0.5 or more.
/// Mean motion and longitude are integrated from epoch in steps of 720 minutes (Spacetrack Report No. 3,
/// section 10). The integrator's steps are kept, so that any time is reached from the step before it and
/// answers don't depend on the order of the questions.
class Resonance {
  public:
    /// Nothing for an orbit that isn't resonant.
    static std::optional<Resonance> of(const BrouwerOrbit& orbit, const SecularRates& rates,
                                       double siderealTimeAtEpoch);

    struct Motion {
        double meanMotion;  ///< rad/min
        double longitude;   ///< resonance longitude, rad
    };
    Motion at(double minutes);

    /// Mean anomaly from the resonance longitude and the other angles at that time; whole turns are kept.
    double meanAnomaly(double longitude, double minutes, double node, double argumentOfPerigee) const;

  private:
    enum class Kind { oneDay, halfDay };

    /// One state of the integrator with its derivatives.
    struct Step {
        double longitude;
        double meanMotion;
        double longitudeRate;
        double motionRate;
        double motionAcceleration;
    };

    Resonance() = default;
    void setOneDay(const BrouwerOrbit& orbit, const SecularRates& rates);
    void setHalfDay(const BrouwerOrbit& orbit, const SecularRates& rates);
    Step withDerivatives(double longitude, double meanMotion, double minutes) const;
    void addOneDayRates(Step& step) const;
    void addHalfDayRates(Step& step, double minutes) const;
    Step stepAfter(const Step& step, double minutes, double stepMinutes) const;
    const Step& keptStep(std::vector<Step>& steps, std::size_t index, double stepMinutes);
    const Step& distantStep(const Step& last, std::size_t lastIndex, std::size_t index, double stepMinutes);

    Kind m_kind = Kind::oneDay;
    double m_siderealTimeAtEpoch = 0.0;
    double m_longitudeDrift = 0.0;  ///< rate of the resonance longitude beyond the mean motion
    double m_argumentOfPerigee = 0.0;
    double m_perigeeRate = 0.0;
    double m_del1 = 0.0, m_del2 = 0.0, m_del3 = 0.0;
    double m_d2201 = 0.0, m_d2211 = 0.0, m_d3210 = 0.0, m_d3222 = 0.0, m_d4410 = 0.0, m_d4422 = 0.0;
    double m_d5220 = 0.0, m_d5232 = 0.0, m_d5421 = 0.0, m_d5433 = 0.0;
    std::vector<Step> m_forward;  ///< from epoch on; entry 0 is the epoch
    /// The last step reached beyond the kept ones: a later time on the same way goes on from there.
    struct Distant {
        double stepMinutes = 0.0;
        std::size_t index = 0;
        Step step{};
    };
    Distant m_distant;
    std::vector<Step> m_backward;  ///< from epoch back
};

}  // namespace vantrace
