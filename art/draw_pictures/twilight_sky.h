// The sky of an evening, without its stars.
#pragma once

#include "art/draw_pictures/plane.h"

namespace vantrace {

struct TwilightSky {
    Picture colours;
    /// How thick the clouds are, 0 to 1.
    Plane clouds;
    /// How near to the middle of the Milky Way, 0 to 1.
    Plane milkyWay;
};

/// Of the size of the landscape.
TwilightSky paintTwilightSky();

/// How much of the sunset's glow comes from there: 1 where the sun went down, 0 opposite.
float sunsetGlow(double azimuthDeg);

}  // namespace vantrace
