#include <QPainter>
#include <QPen>

#include "art/draw_pictures/maps.h"

namespace vantrace {

void drawLines(QImage& map, const QPainterPath& lines, const LineStyle& style) {
    QPainter painter(&map);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.strokePath(lines, QPen(style.colour, style.width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
}

void drawGraticule(QImage& map, const LineStyle& style) {
    constexpr int spacingDeg = 30;
    constexpr int lastParallelDeg = 60;
    const double perDegree = map.width() / 360.0;
    QPainterPath lines;
    for (int longitude = -180 + spacingDeg; longitude < 180; longitude += spacingDeg) {
        lines.moveTo((longitude + 180) * perDegree, (90 - lastParallelDeg - 12) * perDegree);
        lines.lineTo((longitude + 180) * perDegree, (90 + lastParallelDeg + 12) * perDegree);
    }
    for (int latitude = -lastParallelDeg; latitude <= lastParallelDeg; latitude += spacingDeg) {
        lines.moveTo(0, (90 - latitude) * perDegree);
        lines.lineTo(map.width(), (90 - latitude) * perDegree);
    }
    drawLines(map, lines, style);
}

}  // namespace vantrace
