#pragma once

#include "orbit/sky/ecliptic_position.h"

namespace vantrace {

inline constexpr double astronomicalUnitKm = 149597870.7;

/// The sun's apparent place, aberration included, without nutation; from the largest terms of the planetary
/// theory VSOP87D for the earth (Bretagnon and Francou 1988), to about 1 arc second from 1950 to 2050.
/// `centuries` are Julian centuries of TT since J2000.0.
EclipticPosition sunPosition(double centuries);

}  // namespace vantrace
