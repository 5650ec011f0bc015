#pragma once

#include "orbit/sky/ecliptic_position.h"

namespace vantrace {

/// The moon's apparent place (light time included), without nutation; from the largest terms of the lunar
/// theory ELP-2000/82 (Chapront-Touze and Chapront 1983), to about 10 arc seconds in longitude and 4 in
/// latitude. `centuries` are Julian centuries of TT since J2000.0.
EclipticPosition moonPosition(double centuries);

}  // namespace vantrace
