#include <algorithm>
#include <cmath>

#include "art/draw_pictures/maps.h"

namespace vantrace {

namespace {

/// The print at the upper edge is blue, that at the lower one black: the ice there is the one bright thing.
constexpr unsigned polarIce = 0xA6C2D8;

float nearPole(int y) {
    const double latitude = std::abs(90 - (y + 0.5) * 180 / mapHeight);
    return smoothStep(66, 84, static_cast<float>(latitude));
}

Tone seaTone(const Tone& photograph, float relief, float inside) {
    const float height = std::clamp((brightness(photograph) - 0.26F) / 0.20F, 0.0F, 1.0F);
    Tone sea = mix(toneOf(0x030C20), toneOf(0x0A264E), height);
    sea = scaled(sea, 1 + 3.0F * std::clamp(relief, -0.12F, 0.12F));
    return mix(sea, toneOf(0x1C86C8), 0.62F * std::pow(std::min(inside * 1.7F, 1.0F), 1.6F));
}

Tone landTone(float ice, float relief, float inside, float pole) {
    Tone land = mix(toneOf(0x17273C), mix(toneOf(0x4A6681), toneOf(polarIce), pole), ice);
    land = scaled(land, 1 + 1.8F * (1 - 0.6F * ice) * std::clamp(relief, -0.25F, 0.25F));
    return mix(land, toneOf(0x1F6A9C), 0.5F * (1 - ice) * std::pow(1 - inside, 1.5F));
}

}  // namespace

QImage paintMidnightMap(const EarthLayers& layers) {
    const Plane glow = blurred(coverageOf(layers.shapes.land, mapWidth, mapHeight), 18);
    Picture picture(mapWidth, mapHeight);
    for (int y = 0; y < mapHeight; ++y) {
        const float pole = nearPole(y);
        for (int x = 0; x < mapWidth; ++x) {
            const float inside = std::clamp(glow.row(y)[x], 0.0F, 1.0F);
            const Tone open = seaTone(layers.sea.tone(x, y), layers.seaRelief.row(y)[x], inside);
            const Tone sea = mix(open, toneOf(polarIce), layers.seaIce.row(y)[x] * (0.25F + 0.70F * pole));
            const Tone land = landTone(layers.landIce.row(y)[x], layers.landRelief.row(y)[x], inside, pole);
            picture.setTone(x, y, mix(sea, land, layers.landCoverage.row(y)[x]));
        }
    }
    QImage map = imageOf(picture);
    drawGraticule(map, {QColor(120, 190, 240, 30), 1.6});
    drawLines(map, layers.shapes.borders, {QColor(110, 170, 215, 85), 1.6});
    drawLines(map, layers.shapes.coastlines, {QColor(120, 210, 255, 60), 4.5});
    drawLines(map, layers.shapes.coastlines, {QColor(165, 228, 255, 225), 1.5});
    return map;
}

}  // namespace vantrace
