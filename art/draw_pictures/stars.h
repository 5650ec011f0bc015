// Stars at random places: the sky of no particular hour.
#pragma once

#include "art/draw_pictures/twilight_sky.h"

namespace vantrace {

/// Adds them to the sky's colours, more where the Milky Way is, fewer in the haze near the horizon.
void paintStars(TwilightSky& sky);

}  // namespace vantrace
