// The pass that lies ahead of a satellite, asked of the engine.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "orbit/instant.h"
#include "station/steering/pass_plan.h"

namespace vantrace {

class OrbitEngine;

struct ComingPass {
    /// The satellite as the engine knows it.
    std::string name;
    /// Rise, or the moment of the question where the satellite was up already.
    Instant start;
    /// Set; or the end of the path where the satellite stays up for longer than paths are looked at.
    Instant end;
    bool setsAtEnd = true;
    /// From the start to the end, seconds counted from the start.
    std::vector<PathPoint> path;

    double secondsAt(const Instant& time) const { return secondsBetween(start, time); }
    double lengthSeconds() const { return secondsBetween(start, end); }
    /// By the path, between its points.
    Direction directionAt(double seconds) const;
};

/// Where passes come from; a test has its own.
class PassSource {
  public:
    virtual ~PassSource() = default;
    /// The pass that is under way at a moment, or else the next one, of the satellite that a tracking line
    /// names. Nothing where the name isn't known, the satellite doesn't rise within 30 days, or its elements
    /// fail; `reason` then says so.
    virtual std::optional<ComingPass> passOf(std::string_view lineName, const Instant& from,
                                             std::string& reason) = 0;
};

/// Asks an engine whose folder and observer are set. The name in a line has "_" for blanks, and may be cut to
/// 15 characters.
std::optional<ComingPass> comingPass(OrbitEngine& engine, std::string_view lineName, const Instant& from,
                                     std::string& reason);

/// Paths are looked at for so long.
inline constexpr double longestPathSeconds = 12.0 * 3600.0;

}  // namespace vantrace
