// The maps of the world, each painted from the same layers.
#pragma once

#include <QImage>

#include "art/draw_pictures/earth_layers.h"

namespace vantrace {

/// Land cover, relief and sea floor in deep natural colours.
QImage paintReliefMap(const EarthLayers& layers);
/// The countries in flat, quiet colours.
QImage paintPoliticalMap(const EarthLayers& layers);
/// Dark land and sea with shining coasts.
QImage paintMidnightMap(const EarthLayers& layers);

struct LineStyle {
    QColor colour;
    /// In pixels of the map.
    double width = 1;
};

void drawLines(QImage& map, const QPainterPath& lines, const LineStyle& style);
/// Meridians and parallels, each 30 degrees, but for the ice at both ends; the equator a little stronger.
void drawGraticule(QImage& map, const LineStyle& style);

}  // namespace vantrace
