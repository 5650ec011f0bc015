#include "art/draw_pictures/twilight_sky.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <numbers>

#include "art/draw_pictures/landscape.h"
#include "art/draw_pictures/random_waves.h"

namespace vantrace {

namespace {

constexpr double radians = std::numbers::pi / 180;

struct SkyTone {
    double elevationDeg;
    /// Over the sunset, and opposite: there the earth's shadow rises under a rosy belt.
    unsigned sunset;
    unsigned shadow;
};

/// The brightest lets green print and dots be told from it.
constexpr std::array<SkyTone, 10> skyTones{{{0, 0xC87E46, 0x40507A},
                                            {2, 0xB8704A, 0x4C557F},
                                            {5, 0x94605C, 0x645A80},
                                            {9, 0x67567A, 0x5C5580},
                                            {14, 0x445081, 0x3F4B7A},
                                            {22, 0x2A4377, 0x27396A},
                                            {34, 0x1A3161, 0x182A54},
                                            {50, 0x0F2148, 0x0D1B3C},
                                            {70, 0x08132D, 0x070F26},
                                            {90, 0x040818, 0x040816}}};

Tone between(double elevationDeg, unsigned SkyTone::*side) {
    const auto* upper = std::find_if(skyTones.begin() + 1, skyTones.end() - 1,
                                     [=](const SkyTone& tone) { return elevationDeg < tone.elevationDeg; });
    const auto* lower = upper - 1;
    const double share = (elevationDeg - lower->elevationDeg) / (upper->elevationDeg - lower->elevationDeg);
    return mix(toneOf(lower->*side), toneOf(upper->*side), static_cast<float>(share));
}

/// One column of the sky. It is made smooth, since the eye sees every kink of a slope as a line.
Picture columnOf(unsigned SkyTone::*side) {
    Picture column(1, landscapeHeight);
    for (int y = 0; y < landscapeHeight; ++y) column.setTone(0, y, between(elevationOf(y), side));
    for (Plane& plane : column.planes) plane = blurred(plane, landscapeHeight / 55.0);
    return column;
}

using Direction = std::array<double, 3>;

Direction directionOf(double azimuthDeg, double elevationDeg) {
    const double ring = std::cos(elevationDeg * radians);
    return {ring * std::cos(azimuthDeg * radians), ring * std::sin(azimuthDeg * radians),
            std::sin(elevationDeg * radians)};
}

Direction scaled(const Direction& direction, double factor) {
    return {direction[0] * factor, direction[1] * factor, direction[2] * factor};
}

float bell(double value, double width) {
    return static_cast<float>(std::exp(-(value / width) * (value / width)));
}

/// A great circle, highest on the side away from the sunset, with clouds of stars and lanes of dust.
float milkyWayAt(double azimuthDeg, double elevationDeg) {
    constexpr double crestAzimuthDeg = 128;
    constexpr double crestElevationDeg = 58;
    constexpr unsigned seed = 300;
    const Direction pole = directionOf(crestAzimuthDeg + 180, 90 - crestElevationDeg);
    const Direction place = directionOf(azimuthDeg, elevationDeg);
    const double offDeg =
        std::asin(std::clamp(place[0] * pole[0] + place[1] * pole[1] + place[2] * pole[2], -1.0, 1.0)) /
        radians;
    constexpr double farthestDeg = 30;
    if (std::abs(offDeg) > farthestDeg) return 0;
    const float patches = randomWaves(scaled(place, 5), seed);
    const float dust = randomWaves(scaled(place, 9), seed + 50);
    const float band = 0.75F * bell(offDeg, 8.5) + 0.25F * bell(offDeg, 16);
    const float lane = bell(offDeg - 0.8 - 5 * static_cast<double>(patches), 2.6);
    return std::max(0.0F, band * (0.72F + 0.62F * patches) * (1 - 0.62F * lane * (0.8F + 0.9F * dust)));
}

/// Thin sheets low above the land, drawn out along the horizon.
float cloudAt(double azimuthDeg, double elevationDeg) {
    constexpr double lowestDeg = 2;
    constexpr double highestDeg = 21;
    if (elevationDeg < lowestDeg || elevationDeg > highestDeg) return 0;
    constexpr unsigned seed = 700;
    constexpr double around = 1.9;
    constexpr double sheetDeg = 1.5;
    const double x = std::cos(azimuthDeg * radians) * around;
    const double y = std::sin(azimuthDeg * radians) * around;
    const float sway = randomWaves({x * 0.7, y * 0.7, 40}, seed + 20);
    const float sheet = randomWaves({x, y, elevationDeg / sheetDeg + 1.1 * static_cast<double>(sway)}, seed);
    const float weather = randomWaves({x * 0.8, y * 0.8, elevationDeg / 9}, seed + 40);
    const auto height = static_cast<float>(elevationDeg);
    const float layer = smoothStep(2.5F, 7, height) * smoothStep(20, 9, height);
    return layer * smoothStep(0.02F, 0.75F, sheet + 0.6F * weather + 0.10F);
}

/// Clouds catch the light from under the horizon at their lower edge; opposite they are grey.
Tone cloudTone(const Tone& sky, float glow, float underside) {
    const Tone shade = mix(scaled(sky, 0.80F), toneOf(0x3C456A), 0.35F);
    const Tone light = mix(toneOf(0x8A7894), toneOf(0xDB8A5C), glow);
    return mix(shade, light, std::clamp(0.22F + 0.30F * glow + underside, 0.0F, 0.85F));
}

}  // namespace

float sunsetGlow(double azimuthDeg) {
    constexpr double sunsetAzimuthDeg = 252;
    const double share = (1 + std::cos((azimuthDeg - sunsetAzimuthDeg) * radians)) / 2;
    return static_cast<float>(std::pow(share, 1.7));
}

TwilightSky paintTwilightSky() {
    TwilightSky sky{Picture(landscapeWidth, landscapeHeight), Plane(landscapeWidth, landscapeHeight),
                    Plane(landscapeWidth, landscapeHeight)};
    const Picture sunset = columnOf(&SkyTone::sunset);
    const Picture shadow = columnOf(&SkyTone::shadow);
    for (int y = 0; y < landscapeHeight; ++y) {
        for (int x = 0; x < landscapeWidth; ++x) {
            sky.clouds.row(y)[x] = cloudAt(azimuthOf(x), elevationOf(y));
            sky.milkyWay.row(y)[x] = milkyWayAt(azimuthOf(x), elevationOf(y));
        }
    }
    sky.clouds = blurred(sky.clouds, landscapeHeight / 900.0);
    const Plane relief = detailOf(sky.clouds, landscapeHeight / 90.0);
    const int below = landscapeHeight / 300;
    for (int y = 0; y < landscapeHeight; ++y) {
        const float night = smoothStep(12, 48, static_cast<float>(elevationOf(y)));
        for (int x = 0; x < landscapeWidth; ++x) {
            const float glow = sunsetGlow(azimuthOf(x));
            Tone tone = mix(shadow.tone(0, y), sunset.tone(0, y), glow);
            const Tone stars = scaled(toneOf(0x9AA4CC), 0.21F * night * sky.milkyWay.row(y)[x]);
            tone = {tone.red + stars.red, tone.green + stars.green, tone.blue + stars.blue};
            // Where there is more cloud above than below, it is the underside.
            const float underside = relief.row(std::max(0, y - below))[x] -
                                    relief.row(std::min(landscapeHeight - 1, y + below))[x];
            tone = mix(tone, cloudTone(tone, glow, 0.9F * underside), 0.62F * sky.clouds.row(y)[x]);
            sky.colours.setTone(x, y, tone);
        }
    }
    return sky;
}

}  // namespace vantrace
