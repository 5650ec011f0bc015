#include "art/draw_pictures/world_shapes.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPolygonF>
#include <algorithm>
#include <cmath>
#include <map>
#include <ranges>
#include <set>
#include <stdexcept>

namespace vantrace {

namespace {

/// Longitudes east and latitudes in degrees.
using Arc = std::vector<QPointF>;

/// What an arc's number in a ring says.
struct ArcUse {
    std::size_t index = 0;
    bool reversed = false;
};

class Topology {
  public:
    Topology(const QJsonObject& document, int width, int height)
        : m_xPerDegree(width / 360.0), m_yPerDegree(height / 180.0) {
        const QJsonObject transform = document["transform"].toObject();
        const QJsonArray scale = transform["scale"].toArray();
        const QJsonArray translate = transform["translate"].toArray();
        for (const auto& line : document["arcs"].toArray()) {
            Arc arc;
            double x = 0;
            double y = 0;
            // Each point is told as its distance from the one before.
            for (const auto& step : line.toArray()) {
                x += step.toArray()[0].toDouble();
                y += step.toArray()[1].toDouble();
                arc.emplace_back(x * scale[0].toDouble() + translate[0].toDouble(),
                                 y * scale[1].toDouble() + translate[1].toDouble());
            }
            m_arcs.push_back(std::move(arc));
        }
    }

    static ArcUse useOf(int number) {
        return {static_cast<std::size_t>(number < 0 ? ~number : number), number < 0};
    }

    /// A ring's corners on the map, in one piece: what runs over the date line goes on beyond the edge.
    QPolygonF ring(const QJsonArray& numbers) const {
        QPolygonF corners;
        for (const auto& number : numbers) {
            const ArcUse use = useOf(number.toInt());
            const Arc& arc = m_arcs.at(use.index);
            if (use.reversed) {
                for (const QPointF& point : std::views::reverse(arc)) append(corners, point);
            } else {
                for (const QPointF& point : arc) append(corners, point);
            }
        }
        closeAtPole(corners);
        return corners;
    }

    QPolygonF line(std::size_t index) const {
        QPolygonF corners;
        for (const QPointF& point : m_arcs.at(index)) append(corners, point);
        return corners;
    }

    double mapWidth() const { return 360 * m_xPerDegree; }
    double mapHeight() const { return 180 * m_yPerDegree; }

  private:
    void append(QPolygonF& corners, const QPointF& degrees) const {
        QPointF place((degrees.x() + 180) * m_xPerDegree, (90 - degrees.y()) * m_yPerDegree);
        if (!corners.isEmpty()) {
            const double turns = std::round((corners.last().x() - place.x()) / mapWidth());
            place.rx() += turns * mapWidth();
        }
        corners.append(place);
    }

    /// A ring that has gone once round the earth is closed along the map's lower edge: it is Antarctica's.
    void closeAtPole(QPolygonF& corners) const {
        if (corners.isEmpty() || std::abs(corners.last().x() - corners.first().x()) < mapWidth() / 2) return;
        corners.append({corners.last().x(), mapHeight()});
        corners.append({corners.first().x(), mapHeight()});
    }

    double m_xPerDegree;
    double m_yPerDegree;
    std::vector<Arc> m_arcs;
};

/// The polygons of a geometry, each a list of rings.
std::vector<QJsonArray> polygonsOf(const QJsonObject& geometry) {
    const QJsonArray arcs = geometry["arcs"].toArray();
    if (geometry["type"].toString() == "Polygon") return {arcs};
    std::vector<QJsonArray> polygons;
    for (const auto& polygon : arcs) polygons.push_back(polygon.toArray());
    return polygons;
}

/// Once more a map's width to each side, for what lies across the date line.
void addToBothSides(QPainterPath& path, const QPolygonF& corners, double mapWidth, bool closed) {
    for (const double shift : {-mapWidth, 0.0, mapWidth}) {
        const QPolygonF moved = corners.translated(shift, 0);
        const QRectF bounds = moved.boundingRect();
        if (bounds.right() < 0 || bounds.left() > mapWidth) continue;
        path.addPolygon(moved);
        if (closed) path.closeSubpath();
    }
}

QPainterPath areaOf(const Topology& topology, const QJsonObject& geometry) {
    QPainterPath area;
    area.setFillRule(Qt::OddEvenFill);
    for (const QJsonArray& polygon : polygonsOf(geometry)) {
        for (const auto& ring : polygon)
            addToBothSides(area, topology.ring(ring.toArray()), topology.mapWidth(), true);
    }
    return area;
}

std::set<std::size_t> arcsOf(const QJsonObject& geometry) {
    std::set<std::size_t> arcs;
    for (const QJsonArray& polygon : polygonsOf(geometry)) {
        for (const auto& ring : polygon) {
            for (const auto& number : ring.toArray()) arcs.insert(Topology::useOf(number.toInt()).index);
        }
    }
    return arcs;
}

QPainterPath linesOf(const Topology& topology, const std::set<std::size_t>& arcs) {
    QPainterPath lines;
    for (const std::size_t arc : arcs) {
        const QPolygonF line = topology.line(arc);
        // The edge of the map is no coast.
        const double deepest = topology.mapHeight() * 0.995;
        if (std::all_of(line.begin(), line.end(), [&](const QPointF& place) { return place.y() > deepest; }))
            continue;
        addToBothSides(lines, line, topology.mapWidth(), false);
    }
    return lines;
}

}  // namespace

WorldShapes readWorldShapes(const QString& file, int width, int height) {
    QFile source(file);
    if (!source.open(QIODevice::ReadOnly)) throw std::runtime_error("can't read " + file.toStdString());
    const QJsonObject document = QJsonDocument::fromJson(source.readAll()).object();
    const QJsonObject objects = document["objects"].toObject();
    const Topology topology(document, width, height);

    WorldShapes shapes;
    shapes.land.setFillRule(Qt::OddEvenFill);
    std::set<std::size_t> coasts;
    for (const auto& geometry : objects["land"].toObject()["geometries"].toArray()) {
        shapes.land.addPath(areaOf(topology, geometry.toObject()));
        coasts.merge(arcsOf(geometry.toObject()));
    }

    std::map<std::size_t, std::vector<std::size_t>> owners;
    for (const auto& entry : objects["countries"].toObject()["geometries"].toArray()) {
        const QJsonObject geometry = entry.toObject();
        for (const std::size_t arc : arcsOf(geometry)) owners[arc].push_back(shapes.countries.size());
        const QString name = geometry["properties"].toObject()["name"].toString();
        shapes.countries.push_back({name, areaOf(topology, geometry), {}});
    }
    if (shapes.countries.empty()) throw std::runtime_error("no countries in " + file.toStdString());

    std::set<std::size_t> borders;
    for (const auto& [arc, sides] : owners) {
        if (sides.size() != 2) continue;
        borders.insert(arc);
        shapes.countries[sides[0]].neighbours.push_back(sides[1]);
        shapes.countries[sides[1]].neighbours.push_back(sides[0]);
    }
    shapes.coastlines = linesOf(topology, coasts);
    shapes.borders = linesOf(topology, borders);
    return shapes;
}

}  // namespace vantrace
