#pragma once

#include <optional>

#include "orbit/passes/horizon_sample.h"
#include "orbit/passes/mover.h"

namespace vantrace {

enum class Crossing { rise, set };

struct HorizonEvent {
    Crossing kind;
    HorizonSample sample;  ///< at the crossing, to better than a hundredth of a second
};

/// Walks along a mover's path, forwards or backwards, and finds where it crosses the horizon. The strides are
/// taken from the orbit's geometry, so that between two samples the height turns at most once: where it turns
/// towards the horizon the turning point is looked up, however short the pass behind it.
class HorizonScan {
  public:
    /// `direction` 1 or -1.
    HorizonScan(Mover& mover, const Observer& observer, double fromSeconds, int direction);

    /// Whether there is a state at the start and it stands above the horizon.
    bool upAtStart() const { return m_upAtStart; }
    const HorizonSample& start() const { return m_start; }

    /// The next crossing on the way up to `limitSeconds`; none when there is none, or when the path ends
    /// before.
    std::optional<HorizonEvent> next(double limitSeconds);

    /// The path ended: the mover has no state beyond last().
    bool failed() const { return m_failed; }
    /// Where the walk stands.
    const HorizonSample& last() const { return m_last; }

    bool sampleAt(double seconds, HorizonSample& result);
    /// The moment of greatest elevation between two samples above the horizon, `from` the earlier one.
    HorizonSample greatestElevation(const HorizonSample& from, const HorizonSample& to);

  private:
    bool walk(double limitSeconds, HorizonSample& next);
    void findCrossings(const HorizonSample& a, const HorizonSample& b, bool smooth);
    bool findTurningPoint(const HorizonSample& a, const HorizonSample& b, bool smooth, HorizonSample& beyond);
    HorizonEvent crossingBetween(HorizonSample a, HorizonSample b);
    HorizonSample culmination(HorizonSample a, HorizonSample b);
    HorizonSample highestNear(const HorizonSample& guess, double offsetS);

    Mover& m_mover;
    const Observer& m_observer;
    int m_direction;
    SinCos m_siderealAtStart;
    HorizonSample m_start;
    HorizonSample m_last;
    std::optional<HorizonEvent> m_pending[2];
    bool m_upAtStart = false;
    bool m_failed = false;
};

}  // namespace vantrace
