#include "art/draw_pictures/random_waves.h"

#include <cmath>
#include <cstddef>

namespace vantrace {

namespace {

/// Random numbers at the corners of a lattice, smooth between them.
float waves(const std::array<double, 3>& place, unsigned seed) {
    std::array<std::int64_t, 3> corner{};
    std::array<double, 3> share{};
    for (std::size_t axis = 0; axis < place.size(); ++axis) {
        const double floor = std::floor(place[axis]);
        corner[axis] = static_cast<std::int64_t>(floor);
        const double part = place[axis] - floor;
        share[axis] = part * part * (3 - 2 * part);
    }
    double sum = 0;
    for (unsigned index = 0; index < 8; ++index) {
        std::array<std::int64_t, 3> at = corner;
        double weight = 1;
        for (std::size_t axis = 0; axis < at.size(); ++axis) {
            const unsigned upper = (index >> axis) & 1U;
            at[axis] += upper;
            weight *= upper != 0 ? share[axis] : 1 - share[axis];
        }
        sum += weight * static_cast<double>(randomAt(at[0], at[1], at[2], seed));
    }
    return static_cast<float>(sum);
}

}  // namespace

float randomAt(std::int64_t x, std::int64_t y, std::int64_t z, unsigned seed) {
    auto word = static_cast<std::uint64_t>(x) * 0x9E3779B97F4A7C15U ^
                static_cast<std::uint64_t>(y) * 0xC2B2AE3D27D4EB4FU ^
                static_cast<std::uint64_t>(z) * 0x165667B19E3779F9U ^
                seed * std::uint64_t{0x27D4EB2F165667C5U};
    word = (word ^ (word >> 29U)) * 0xBF58476D1CE4E5B9U;
    word ^= word >> 32U;
    constexpr double greatest = 4294967295.0;
    return static_cast<float>(static_cast<double>(word & 0xFFFFFFFFU) / greatest * 2 - 1);
}

float randomWaves(std::array<double, 3> place, unsigned seed) {
    float sum = 0;
    float height = 0.5F;
    constexpr unsigned octaves = 6;
    for (unsigned octave = 0; octave < octaves; ++octave) {
        sum += height * waves(place, seed + octave);
        height *= 0.55F;
        constexpr double finer = 2.03;
        for (double& coordinate : place) coordinate *= finer;
    }
    return sum;
}

}  // namespace vantrace
