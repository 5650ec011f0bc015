// The pack ice of the Arctic.
#pragma once

#include "art/draw_pictures/plane.h"

namespace vantrace {

/// A random height of that place, the same at every run, -1 to 1, of several sizes of waves on the sphere;
/// the first ones so many times the earth's radius long as 1 divided by the frequency.
float roughness(double latitudeDeg, double longitudeEastDeg, double frequency, unsigned seed);

/// How much of each pixel of a map of the whole earth is ice, 0 to 1. Land is not looked at.
Plane arcticIce(int width, int height);

}  // namespace vantrace
