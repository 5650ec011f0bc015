#include "art/draw_pictures/sea_ice.h"

#include <array>
#include <cmath>
#include <numbers>

#include "art/draw_pictures/random_waves.h"

namespace vantrace {

namespace {

/// Latitudes of the edge of the ice in a late summer, each 15 degrees of longitude from 180 W to the east.
/// Drawn by hand, after the general course of it.
constexpr std::array<double, 24> edgeLatitudes{73.5, 73,   73.5, 73,   73,   73.5, 75,   77,
                                               79,   82.3, 82,   76,   79,   80.5, 81.3, 81.5,
                                               81,   80.5, 79.5, 78.5, 77.5, 77,   76,   74.5};

double edgeLatitude(double longitudeEastDeg) {
    constexpr double spacingDeg = 360.0 / edgeLatitudes.size();
    const double place = (longitudeEastDeg + 180) / spacingDeg;
    const double floor = std::floor(place);
    const auto index = static_cast<std::size_t>(floor) % edgeLatitudes.size();
    const double share = (1 - std::cos((place - floor) * std::numbers::pi)) / 2;
    return edgeLatitudes.at(index) * (1 - share) +
           edgeLatitudes.at((index + 1) % edgeLatitudes.size()) * share;
}

}  // namespace

float roughness(double latitudeDeg, double longitudeEastDeg, double frequency, unsigned seed) {
    constexpr double radians = std::numbers::pi / 180;
    const double ring = std::cos(latitudeDeg * radians);
    return randomWaves({ring * std::cos(longitudeEastDeg * radians) * frequency,
                        ring * std::sin(longitudeEastDeg * radians) * frequency,
                        std::sin(latitudeDeg * radians) * frequency},
                       seed);
}

Plane arcticIce(int width, int height) {
    Plane ice(width, height);
    constexpr double southernmostDeg = 66;
    constexpr unsigned seed = 11;
    for (int y = 0; y < height; ++y) {
        const double latitude = 90 - (y + 0.5) * 180 / height;
        if (latitude < southernmostDeg) break;
        for (int x = 0; x < width; ++x) {
            const double longitude = (x + 0.5) * 360 / width - 180;
            const float wander = 3.6F * roughness(latitude, longitude, 20, seed);
            const auto above = static_cast<float>(latitude - edgeLatitude(longitude)) + wander;
            ice.row(y)[x] = smoothStep(-0.4F, 0.7F, above);
        }
    }
    return ice;
}

}  // namespace vantrace
