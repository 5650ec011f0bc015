// Coastlines, countries and borders as lines on a map picture, from a TopoJSON file.
#pragma once

#include <QPainterPath>
#include <QPointF>
#include <QString>
#include <cstddef>
#include <vector>

namespace vantrace {

struct Country {
    QString name;
    QPainterPath area;
    /// Indices of the countries that it has a border with.
    std::vector<std::size_t> neighbours;
};

/// All on an equirectangular map of that size in pixels, longitude 180 W at the left edge, north at the top.
/// Areas that reach over the date line are there at both edges, and go beyond them.
struct WorldShapes {
    QPainterPath land;
    std::vector<Country> countries;
    QPainterPath coastlines;
    QPainterPath borders;
};

/// Throws std::runtime_error where the file isn't there or holds no countries.
WorldShapes readWorldShapes(const QString& file, int width, int height);

}  // namespace vantrace
