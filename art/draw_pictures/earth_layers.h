// The earth taken apart into what the maps are painted from.
#pragma once

#include <QString>

#include "art/draw_pictures/plane.h"
#include "art/draw_pictures/world_shapes.h"

namespace vantrace {

/// Size of the maps, in pixels.
inline constexpr int mapWidth = 4096;
inline constexpr int mapHeight = 2048;

struct EarthLayers {
    WorldShapes shapes;
    /// Colours of the photograph, each flowing on beyond the coast.
    Picture land;
    Picture sea;
    /// How much of a pixel is land, lakes taken out; its edge is that of the drawn coastlines.
    Plane landCoverage;
    /// How much of the land is snow and glaciers.
    Plane landIce;
    /// How much of the sea is ice.
    Plane seaIce;
    /// Brightness against the surroundings, about 0.
    Plane landRelief;
    Plane seaRelief;
    /// 0 far out, towards 1 at the shore; on the land, too.
    Plane nearShore;
};

/// From the photograph `natural_earth_2.jpg` and the coastlines `countries-50m.json` of a folder. Throws
/// std::runtime_error where one of them can't be read.
EarthLayers readEarthLayers(const QString& folder);

/// The area's share in each pixel.
Plane coverageOf(const QPainterPath& area, int width, int height);

}  // namespace vantrace
