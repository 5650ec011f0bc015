#pragma once

#include <optional>
#include <string>
#include <vector>

#include "orbit/earth/look_angles.h"
#include "orbit/passes/mover.h"

namespace vantrace {

/// One end of a pass, or its culmination.
struct PassPoint {
    Instant time;
    double azimuthRad = 0.0;
    double elevationRad = 0.0;
};

/// From rise to set over the observer's mathematical horizon, without refraction. Times to better than 0.1 s.
struct Pass {
    PassPoint rise;
    PassPoint culmination;
    PassPoint set;
    bool riseKnown = true;  ///< false: up for more than 30 days before; the rise is the start of the span
    bool setKnown = true;   ///< false: no set within 30 days after the span; the set is the span's end

    double durationS() const { return secondsBetween(rise.time, set.time); }
    bool neverSets() const { return !riseKnown && !setKnown; }
};

struct PassSearchResult {
    std::vector<Pass> passes;
    /// Why the path ends within the span, with the moment; empty where it doesn't.
    std::string failureReason;
    Instant failureTime;
};

/// Days within which a next rise or set, or the missing end of a pass, is looked for.
inline constexpr double eventSearchDays = 30.0;

/// Every pass that is under way at `from` or rises within `days` days. A mover starts at `from`.
PassSearchResult findPasses(Mover& mover, const Observer& observer, const Instant& from, double days);

struct EventSearchResult {
    std::optional<Instant> time;
    std::string failureReason;  ///< why the path ends before an event was found
    Instant failureTime;
};

/// The next rise or set later than `from`. The moment given lies just behind the crossing, within 0.05 s, so
/// that a search from there finds the next one.
EventSearchResult findNextRise(Mover& mover, const Observer& observer, const Instant& from);
EventSearchResult findNextSet(Mover& mover, const Observer& observer, const Instant& from);

}  // namespace vantrace
