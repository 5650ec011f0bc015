#include "orbit/earth/earth_rotation.h"

#include <cmath>
#include <numbers>

namespace vantrace {

double greenwichMeanSiderealTime(const Instant& time) {
    constexpr double j2000 = 2451545.0;
    constexpr double daysPerCentury = 36525.0;
    const double centuries = ((time.day - j2000) + time.fraction) / daysPerCentury;
    // The published 876600 h a century are whole turns at noon; what is left of them is the time since noon.
    const double sinceNoon = time.fraction + 0.5;
    const double seconds =
        67310.54841 + (8640184.812866 + (0.093104 - 6.2e-6 * centuries) * centuries) * centuries;
    const double turns = seconds / secondsPerDay + sinceNoon;
    return (turns - std::floor(turns)) * 2.0 * std::numbers::pi;
}

}  // namespace vantrace
