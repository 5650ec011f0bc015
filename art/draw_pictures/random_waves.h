// Randomness that is the same at every run.
#pragma once

#include <array>
#include <cstdint>

namespace vantrace {

/// A random number for these whole numbers, -1 to 1.
float randomAt(std::int64_t x, std::int64_t y, std::int64_t z, unsigned seed);

/// A random height at a point in space, -1 to 1, the sum of several sizes of waves. The largest are about 2
/// long. Points on a sphere or a cylinder give a height that joins all around.
float randomWaves(std::array<double, 3> place, unsigned seed);

}  // namespace vantrace
