#pragma once

#include "orbit/instant.h"

namespace vantrace {

/// TT - UTC in seconds: leap seconds as announced by the IERS (Bulletin C) since 1972 and 32.184 s. After the
/// last one known (2017-01-01) it stays as it is; before 1972 it is held at the value of that year.
double terrestrialMinusUniversalTime(const Instant& utc);

/// Julian centuries of TT since J2000.0.
double julianCenturiesTT(const Instant& utc);

}  // namespace vantrace
