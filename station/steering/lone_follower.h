// Following the line alone, where nobody knows the path that lies ahead.
#pragma once

#include <optional>

#include "station/steering/direction.h"

namespace vantrace {

/// Goes on from the last position for as long as the limits allow it. Where there is a choice, at the start
/// and at a turn, the way with the most room in the direction of the movement is taken; doubtful azimuths are
/// taken only where the movement leads into them.
class LoneFollower {
  public:
    /// The rotator's position for the next direction, a second after the last; nothing where the first two
    /// directions are needed to see which way it goes.
    std::optional<RotatorPosition> follow(const Direction& direction, const RotatorLimits& limits);
    /// Begins anew from where the rotator has been sent already; one that looks over the top goes on so.
    void goOnFrom(const RotatorPosition& position);
    /// Whether the position that was given last lies on another turn than the one before, or no longer over
    /// the top.
    bool hasTurned() const { return m_hasTurned; }
    /// Whether the antenna can't look there from the position that was given last.
    bool isOutOfReach() const { return m_isOutOfReach; }

  private:
    RotatorPosition held(const RotatorPosition& position, const RotatorLimits& limits);
    RotatorPosition onward(const Direction& direction) const;
    RotatorPosition chosen(const Direction& direction, const RotatorLimits& limits) const;

    std::optional<Direction> m_seen;
    std::optional<RotatorPosition> m_last;
    bool m_isFlipped = false;
    double m_movementDeg = 0.0;
    bool m_hasTurned = false;
    bool m_isOutOfReach = false;
};

}  // namespace vantrace
