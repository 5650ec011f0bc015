#include <algorithm>
#include <cmath>

#include "art/draw_pictures/maps.h"
#include "art/draw_pictures/sea_ice.h"

namespace vantrace {

namespace {

/// Bright places would swallow white and green print: land keeps its colours but becomes deep, and only ice
/// stays bright.
Tone landTone(const Tone& photograph, float relief, float ice) {
    constexpr float gamma = 1.55F;
    const auto deep = [](float value) { return std::pow(std::clamp(value, 0.0F, 1.0F), gamma); };
    Tone tone{deep(photograph.red), deep(photograph.green), deep(photograph.blue)};
    // The brightest deserts are drawn down to the level of the others, and get the colour of sand.
    const float level = brightness(tone);
    const float wanted = 0.92F * level / (1 + 0.75F * level) + 0.02F;
    const Tone sand = scaled(toneOf(0xC69E6A), level / brightness(toneOf(0xC69E6A)));
    tone = mix(tone, sand, 0.55F * smoothStep(0.45F, 0.80F, level));
    tone = scaled(tone, wanted / std::max(level, 0.02F));
    // The photograph's grass is greener than any from above.
    const float grey = brightness(tone);
    const float greenness = std::clamp((tone.green - tone.red) * 4, 0.0F, 1.0F);
    tone = mix(tone, {grey * 1.04F, grey, grey * 0.92F}, 0.04F + 0.18F * greenness);
    tone = scaled(tone, 1 + 1.0F * std::clamp(relief, -0.25F, 0.25F));

    const Tone snow = mix(toneOf(0x7F9DBA), toneOf(0xE2EBF2),
                          smoothStep(0.50F, 0.98F, brightness(photograph) + 0.9F * relief));
    return mix(tone, snow, ice);
}

Tone seaTone(const Tone& photograph, float relief, float nearShore) {
    // From the trenches up to the shelves.
    const float height = std::clamp((brightness(photograph) - 0.26F) / 0.17F, 0.0F, 1.0F);
    Tone tone = height < 0.5F ? mix(toneOf(0x051836), toneOf(0x0A2E5E), height * 2)
                              : mix(toneOf(0x0A2E5E), toneOf(0x195284), height * 2 - 1);
    tone = scaled(tone, 1 + 2.6F * std::clamp(relief, -0.10F, 0.10F));
    return mix(tone, toneOf(0x3A86A6), 0.50F * std::pow(std::clamp(nearShore * 1.6F, 0.0F, 1.0F), 1.8F));
}

Tone iceTone(int x, int y) {
    const double latitude = 90 - (y + 0.5) * 180 / mapHeight;
    const double longitude = (x + 0.5) * 360 / mapWidth - 180;
    constexpr unsigned seed = 40;
    const float floes = roughness(latitude, longitude, 26, seed);
    return mix(toneOf(0x93B2CC), toneOf(0xDBE7F0), smoothStep(-0.65F, 0.45F, floes));
}

}  // namespace

QImage paintReliefMap(const EarthLayers& layers) {
    Picture picture(mapWidth, mapHeight);
    for (int y = 0; y < mapHeight; ++y) {
        for (int x = 0; x < mapWidth; ++x) {
            const float land = layers.landCoverage.row(y)[x];
            const float ice = layers.seaIce.row(y)[x];
            Tone tone =
                seaTone(layers.sea.tone(x, y), layers.seaRelief.row(y)[x], layers.nearShore.row(y)[x]);
            if (ice > 0 && land < 1) tone = mix(tone, iceTone(x, y), 0.94F * ice);
            if (land > 0) {
                tone = mix(
                    tone,
                    landTone(layers.land.tone(x, y), layers.landRelief.row(y)[x], layers.landIce.row(y)[x]),
                    land);
            }
            picture.setTone(x, y, tone);
        }
    }
    QImage map = imageOf(picture);
    drawGraticule(map, {QColor(255, 255, 255, 20), 1.6});
    drawLines(map, layers.shapes.borders, {QColor(255, 240, 205, 70), 1.7});
    drawLines(map, layers.shapes.coastlines, {QColor(4, 16, 30, 120), 1.3});
    return map;
}

}  // namespace vantrace
