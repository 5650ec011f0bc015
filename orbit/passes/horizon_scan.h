#pragma once

#include <optional>

#include "orbit/earth/look_angles.h"
#include "orbit/passes/mover.h"

namespace vantrace {

/// How high a mover stands over the observer's horizon plane at a moment.
struct HorizonSample {
    double seconds = 0.0;      ///< from the mover's start
    double upKm = 0.0;         ///< above the plane of the horizon
    double upRateKmS = 0.0;
    double sine = 0.0;         ///< of the elevation
    double sineRatePerS = 0.0;
    Mover::Stride stride{};
};

enum class Crossing { rise, set };

struct HorizonEvent {
    Crossing kind;
    double seconds;  ///< from the mover's start, to better than a hundredth of a second
};

/// Walks along a mover's path, forwards or backwards, and finds where it crosses the horizon. The strides are taken
/// from the orbit's geometry, so that between two samples the height turns at most once: where it turns towards the
/// horizon the turning point is looked up, however short the pass behind it.
class HorizonScan {
  public:
    /// `direction` 1 or -1.
    HorizonScan(Mover& mover, const Observer& observer, double fromSeconds, int direction);

    /// Whether there is a state at the start, and then whether it stands above the horizon.
    bool started() const { return !m_failed; }
    bool upAtStart() const { return m_upAtStart; }

    /// The next crossing on the way up to `limitSeconds`; none when there is none, or when the path ends before.
    std::optional<HorizonEvent> next(double limitSeconds);

    /// The path ended: the mover has no state beyond failureSeconds().
    bool failed() const { return m_failed; }
    double failureSeconds() const { return m_failureSeconds; }

    bool sample(double seconds, HorizonSample& result);
    Whereabouts lookAt(double seconds);
    /// The moment of greatest elevation between two moments, and that elevation's sine.
    HorizonSample greatestElevation(double fromSeconds, double toSeconds);

  private:
    bool stride(double limitSeconds, HorizonSample& next);
    void findCrossings(const HorizonSample& a, const HorizonSample& b);
    bool findTurningPoint(const HorizonSample& a, const HorizonSample& b, HorizonSample& beyond);
    HorizonEvent crossingBetween(HorizonSample a, HorizonSample b);
    HorizonSample sineTurningPoint(HorizonSample a, HorizonSample b);

    Mover& m_mover;
    const Observer& m_observer;
    int m_direction;
    SinCos m_siderealAtStart;
    HorizonSample m_last;
    std::optional<HorizonEvent> m_pending[2];
    bool m_upAtStart = false;
    bool m_failed = false;
    double m_failureSeconds = 0.0;
};

}  // namespace vantrace
