#include "orbit/sky/time_scales.h"

#include <array>

namespace vantrace {

namespace {

struct LeapSecond {
    double fromJulianDate;
    int atomicMinusUniversal;
};

constexpr std::array<LeapSecond, 28> leapSeconds = {{
    {2441317.5, 10}, {2441499.5, 11}, {2441683.5, 12}, {2442048.5, 13}, {2442413.5, 14}, {2442778.5, 15},
    {2443144.5, 16}, {2443509.5, 17}, {2443874.5, 18}, {2444239.5, 19}, {2444786.5, 20}, {2445151.5, 21},
    {2445516.5, 22}, {2446247.5, 23}, {2447161.5, 24}, {2447892.5, 25}, {2448257.5, 26}, {2448804.5, 27},
    {2449169.5, 28}, {2449534.5, 29}, {2450083.5, 30}, {2450630.5, 31}, {2451179.5, 32}, {2453736.5, 33},
    {2454832.5, 34}, {2456109.5, 35}, {2457204.5, 36}, {2457754.5, 37},
}};

}  // namespace

double terrestrialMinusUniversalTime(const Instant& utc) {
    constexpr double terrestrialMinusAtomic = 32.184;
    int atomicMinusUniversal = leapSeconds.front().atomicMinusUniversal;
    for (const LeapSecond& leap : leapSeconds) {
        if (utc.day >= leap.fromJulianDate) {
            atomicMinusUniversal = leap.atomicMinusUniversal;
        }
    }
    return atomicMinusUniversal + terrestrialMinusAtomic;
}

double julianCenturiesTT(const Instant& utc) {
    constexpr double j2000 = 2451545.0;
    constexpr double daysPerCentury = 36525.0;
    const double days =
        (utc.day - j2000) + (utc.fraction + terrestrialMinusUniversalTime(utc) / secondsPerDay);
    return days / daysPerCentury;
}

}  // namespace vantrace
