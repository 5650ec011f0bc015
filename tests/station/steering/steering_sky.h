// Passes of real satellites for the tests of the steering.
#pragma once

#include "orbit/elements/element_catalogue.h"
#include "orbit/orbit_engine.h"
#include "station/steering/coming_pass.h"
#include "tests/support/testing.h"

namespace vantrace {

inline constexpr RotatorLimits plain{0, 360, 0, 90};
inline constexpr RotatorLimits overlapping{0, 450, 0, 90};

/// An engine over the element files that ship, at a site.
class ShippedSky {
  public:
    ShippedSky(double latitudeDeg, double longitudeDeg) {
        engine.EngineSetKepPath(VANTRACE_SHIPPED_FOLDER "/");
        engine.EngineSetLatitude(latitudeDeg);
        engine.EngineSetLongitude(longitudeDeg);
        engine.EngineSetHeight(200.0);
    }

    /// The next so many passes from 2026-08-22 on.
    std::vector<ComingPass> passesOf(const std::string& name, int count) {
        std::vector<ComingPass> passes;
        Instant from = start();
        for (int i = 0; i < count; ++i) {
            std::string reason;
            std::optional<ComingPass> pass = comingPass(engine, name, from, reason);
            if (!pass) break;
            from = plusSeconds(pass->end, 60.0);
            passes.push_back(std::move(*pass));
        }
        return passes;
    }
    static Instant start() { return instantFromCalendar({2026, 8, 22, 0, 0, 0}); }

    OrbitEngine engine;
};

/// The azimuths that a path runs over, from the least to the most, without breaks at north.
inline std::pair<double, double> azimuthRange(const std::vector<PathPoint>& path) {
    double at = path.front().direction.azimuthDeg;
    std::pair<double, double> range{at, at};
    for (const PathPoint& point : path) {
        at = nearestTurn(point.direction.azimuthDeg, at);
        range = {std::min(range.first, at), std::max(range.second, at)};
    }
    return range;
}

}  // namespace vantrace
