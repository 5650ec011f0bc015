#pragma once

#include "orbit/instant.h"

namespace vantrace {

/// Rate of Greenwich mean sidereal time, rad/s (Aoki et al. 1982: 1.002737909350795 turns a day).
inline constexpr double earthRotationRadPerS = 7.292115855306587e-5;

/// Greenwich mean sidereal time, 0 up to 2 pi; UT1 is taken as UTC (IAU 1982: Aoki et al., Astron. Astrophys.
/// 105).
double greenwichMeanSiderealTime(const Instant& time);

}  // namespace vantrace
