#include <QPainter>
#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>
#include <vector>

#include "art/draw_pictures/maps.h"
#include "art/draw_pictures/sea_ice.h"

namespace vantrace {

namespace {

/// Not so bright that white print is lost.
constexpr std::array<unsigned, 7> countryColours{0x8E7440, 0x54795A, 0x8A5A50, 0x5A7684,
                                                 0x736A8E, 0x747F4A, 0x946C54};
constexpr unsigned iceColour = 0xDFE8EC;

/// Each country's number in the list of colours, such that neighbours differ; those with most neighbours
/// first.
std::vector<std::size_t> chosenColours(const std::vector<Country>& countries) {
    std::vector<std::size_t> order(countries.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(), [&](std::size_t one, std::size_t other) {
        return countries[one].neighbours.size() > countries[other].neighbours.size();
    });
    const std::size_t none = countryColours.size();
    std::vector<std::size_t> chosen(countries.size(), none);
    std::array<std::size_t, countryColours.size()> uses{};
    for (const std::size_t country : order) {
        std::array<bool, countryColours.size()> taken{};
        for (const std::size_t neighbour : countries[country].neighbours) {
            if (chosen[neighbour] != none) taken.at(chosen[neighbour]) = true;
        }
        // Of the colours left, the one that has been used least.
        std::size_t best = 0;
        for (std::size_t colour = 1; colour < countryColours.size(); ++colour) {
            if (taken.at(best) || (!taken.at(colour) && uses.at(colour) < uses.at(best))) best = colour;
        }
        chosen[country] = best;
        ++uses.at(best);
    }
    return chosen;
}

/// The countries' colours, flowing on beyond the coast so that none shows a rim.
Picture countryColoursOf(const WorldShapes& shapes) {
    QImage image(mapWidth, mapHeight, QImage::Format_RGB32);
    image.fill(Qt::black);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    const std::vector<std::size_t> chosen = chosenColours(shapes.countries);
    for (std::size_t index = 0; index < shapes.countries.size(); ++index) {
        const Country& country = shapes.countries[index];
        const bool iceSheet = country.name == "Antarctica" || country.name == "Greenland";
        const QColor colour = QColor::fromRgb(iceSheet ? iceColour : countryColours.at(chosen[index]));
        // The pen's half width closes the seams between neighbours.
        painter.setPen(QPen(colour, 1));
        painter.setBrush(colour);
        painter.drawPath(country.area);
    }
    painter.end();
    return pictureOf(image);
}

Tone seaTone(float relief, float nearShore) {
    const Tone open = scaled(toneOf(0x17456E), 1 + 1.6F * std::clamp(relief, -0.1F, 0.1F));
    return mix(open, toneOf(0x3F86AC), 0.7F * std::clamp(nearShore * 1.5F, 0.0F, 1.0F));
}

}  // namespace

QImage paintPoliticalMap(const EarthLayers& layers) {
    const Picture countries = countryColoursOf(layers.shapes);
    Picture picture(mapWidth, mapHeight);
    const Tone packIce = toneOf(0xC3D8E6);
    for (int y = 0; y < mapHeight; ++y) {
        for (int x = 0; x < mapWidth; ++x) {
            const Tone sea = mix(seaTone(layers.seaRelief.row(y)[x], layers.nearShore.row(y)[x]), packIce,
                                 layers.seaIce.row(y)[x]);
            const float shade = 1 + 0.9F * std::clamp(layers.landRelief.row(y)[x], -0.2F, 0.15F);
            picture.setTone(x, y,
                            mix(sea, scaled(countries.tone(x, y), shade), layers.landCoverage.row(y)[x]));
        }
    }
    QImage map = imageOf(picture);
    drawGraticule(map, {QColor(255, 255, 255, 26), 1.6});
    drawLines(map, layers.shapes.borders, {QColor(24, 20, 16, 150), 1.8});
    drawLines(map, layers.shapes.coastlines, {QColor(8, 26, 44, 190), 1.8});
    return map;
}

}  // namespace vantrace
