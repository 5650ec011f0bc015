// Along which of its ways a rotator takes a pass, so that it needn't turn back in the middle.
#pragma once

#include <optional>
#include <span>
#include <vector>

#include "station/steering/direction.h"

namespace vantrace {

/// A satellite's direction at seconds from the start of its path.
struct PathPoint {
    double seconds = 0.0;
    Direction direction;
};

struct PlannedPoint {
    double seconds = 0.0;
    RotatorPosition position;
    /// The antenna looks over the top: the rotator's azimuth is half a turn off, its elevation above 90.
    bool isFlipped = false;
};

/// Where a rotator can't go on and has to take the same direction in another way.
struct RotatorTurn {
    double seconds = 0.0;
    RotatorPosition from;
    RotatorPosition to;

    friend bool operator==(const RotatorTurn&, const RotatorTurn&) = default;
};

struct PassPlan {
    /// One for each point of the path.
    std::vector<PlannedPoint> points;
    std::vector<RotatorTurn> turns;
    /// How long parts of the path lie where the rotator can't look at all.
    double unreachableSeconds = 0.0;

    /// The rotator's position for a direction that is seen at a moment of the path, the first or the last one
    /// outside it: the planned way, but the direction itself. The plan isn't empty.
    RotatorPosition positionAt(double seconds, const Direction& direction, const RotatorLimits& limits) const;
};

/// The way through a whole path, whose points are less than half a turn apart. A direction can be taken by
/// any number of whole turns and, where the elevation goes so far, over the top. Of the ways that the limits
/// allow the one with the fewest turns is taken; then the one that turns while the satellite is low, that
/// leaves out doubtful azimuths, that doesn't go over the top, and that starts near `present`, or else near
/// the middle of the rotator's range. `isUnderWay`: the path has begun, and what looks over the top at
/// present rather goes on so than back.
PassPlan planPass(std::span<const PathPoint> path, const RotatorLimits& limits,
                  const std::optional<RotatorPosition>& present, bool isUnderWay = false);

}  // namespace vantrace
