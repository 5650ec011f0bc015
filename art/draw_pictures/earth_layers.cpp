#include "art/draw_pictures/earth_layers.h"

#include <QPainter>
#include <QTransform>
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <stdexcept>

#include "art/draw_pictures/sea_ice.h"

namespace vantrace {

namespace {

/// A plane of the same size, pixel by pixel from others.
template <class Function, class... Planes>
Plane combined(Function function, const Plane& first, const Planes&... others) {
    Plane result(first.width(), first.height());
    for (std::size_t index = 0; index < first.values().size(); ++index)
        result.values()[index] = function(first.values()[index], others.values()[index]...);
    return result;
}

double latitudeOf(int y, int height) {
    return 90 - (y + 0.5) * 180 / height;
}

/// Where the water is: blue, and darker than the blue shadows of the ice. On Antarctica there is none.
Plane waterOf(const Picture& photograph) {
    constexpr double southernmostDeg = -60;
    Plane water(photograph.width(), photograph.height());
    for (int y = 0; y < water.height(); ++y) {
        if (latitudeOf(y, water.height()) < southernmostDeg) break;
        for (int x = 0; x < water.width(); ++x) {
            const Tone tone = photograph.tone(x, y);
            water.row(y)[x] =
                smoothStep(0.14F, 0.26F, tone.blue - tone.red) * smoothStep(0.68F, 0.58F, tone.green);
        }
    }
    return water;
}

/// Snow and glaciers, by their colour. Near the tropics bright sand looks the same, and on the high plains
/// bare rock, so there only the brightest and bluest counts; Antarctica is ice whatever its tint. The tint is
/// a mean of some pixels, because the photograph's file keeps it in coarse blocks.
Plane landIceOf(const Picture& land) {
    const Plane tint = blurred(
        combined([](float red, float blue) { return blue - red; }, land.planes[0], land.planes[2]), 7);
    Plane ice(land.width(), land.height());
    for (int y = 0; y < ice.height(); ++y) {
        const auto latitude = static_cast<float>(latitudeOf(y, ice.height()));
        const float cold = smoothStep(52, 60, std::abs(latitude));
        const float least = 0.70F - 0.14F * cold;
        const float bluest = 0.03F - 0.02F * cold - smoothStep(-58, -62, latitude);
        const float climate = smoothStep(24, 27, std::abs(latitude));
        for (int x = 0; x < ice.width(); ++x) {
            const Tone tone = land.tone(x, y);
            ice.row(y)[x] = climate * smoothStep(least, least + 0.16F, std::min(tone.red, tone.green)) *
                            smoothStep(bluest - 0.05F, bluest, tint.row(y)[x]);
        }
    }
    return ice;
}

/// The Arctic pack ice and the shelves of ice around Antarctica, which are bright on the photograph.
Plane seaIceOf(const Picture& sea) {
    return combined([](float pack, float level) { return std::max(pack, smoothStep(0.58F, 0.70F, level)); },
                    arcticIce(sea.width(), sea.height()), brightnessOf(sea));
}

/// What lies a pixel or two off the edge of an area, so that the photograph's blur and its coastline, which
/// is never quite the drawn one, don't reach there.
Plane insideOf(const Plane& coverage) {
    return combined([](float share) { return smoothStep(0.93F, 0.99F, share); }, blurred(coverage, 1.6));
}

}  // namespace

Plane coverageOf(const QPainterPath& area, int width, int height) {
    QImage image(width, height, QImage::Format_Grayscale8);
    image.fill(Qt::black);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(area, Qt::white);
    painter.end();
    return planeOf(image);
}

EarthLayers readEarthLayers(const QString& folder) {
    const QImage image(folder + "/natural_earth_2.jpg");
    if (image.isNull()) throw std::runtime_error("can't read the photograph in " + folder.toStdString());
    if (image.width() * 2 != mapWidth || image.height() * 2 != mapHeight)
        throw std::runtime_error("the photograph isn't half the size of the maps");
    const Picture photograph = pictureOf(image);

    EarthLayers layers;
    layers.shapes = readWorldShapes(folder + "/countries-50m.json", mapWidth, mapHeight);
    const Plane coverage = coverageOf(QTransform::fromScale(0.5, 0.5).map(layers.shapes.land),
                                      photograph.width(), photograph.height());
    const Plane inland = insideOf(coverage);
    const Plane offshore = insideOf(combined([](float share) { return 1 - share; }, coverage));
    const Plane water = waterOf(photograph);
    const Plane lakes = combined([](float wet, float inside) { return wet * inside; }, water, inland);
    const Plane dry = combined([](float inside, float wet) { return inside * smoothStep(0.12F, 0.02F, wet); },
                               inland, blurred(water, 1));

    layers.land = sharpened(doubled(filledIn(photograph, dry)), 2.2, 0.55F);
    const Plane wet =
        combined([](float outside, float lake) { return std::max(outside, lake * lake); }, offshore, lakes);
    layers.sea = sharpened(doubled(filledIn(photograph, wet)), 2.2, 0.5F);
    layers.landCoverage =
        combined([](float share, float lake) { return share * (1 - smoothStep(0.35F, 0.65F, lake)); },
                 coverageOf(layers.shapes.land, mapWidth, mapHeight), doubled(lakes));
    layers.landIce = landIceOf(layers.land);
    layers.seaIce = seaIceOf(layers.sea);
    layers.landRelief = detailOf(brightnessOf(layers.land), 14);
    layers.seaRelief = detailOf(brightnessOf(layers.sea), 14);
    layers.nearShore = blurred(layers.landCoverage, 11);
    return layers;
}

}  // namespace vantrace
