#include "art/draw_pictures/land_shapes.h"

#include <QPen>
#include <QTransform>
#include <cmath>

#include "art/draw_pictures/random_waves.h"

namespace vantrace {

namespace {

/// A random factor near 1 for a part of the shape of that number.
double about(double spread, int number, int part) {
    constexpr unsigned seed = 1200;
    return 1 + spread * static_cast<double>(randomAt(number, part, 0, seed));
}

QPainterPath thickened(const QPainterPath& lines, double width) {
    QPainterPathStroker pen;
    pen.setWidth(width);
    pen.setCapStyle(Qt::RoundCap);
    pen.setJoinStyle(Qt::RoundJoin);
    return pen.createStroke(lines);
}

}  // namespace

QPainterPath spruce(double x, double ground, double height, int number) {
    constexpr int tiers = 5;
    const double reach = 0.21 * height * about(0.2, number, 0);
    QPainterPath path(QPointF(x, ground - height));
    for (const int side : {1, -1}) {
        for (int tier = 1; tier <= tiers; ++tier) {
            // Down the right side, up the left one.
            const int level = side > 0 ? tier : tiers + 1 - tier;
            const double y = ground - height * (1 - 0.93 * level / tiers);
            const double out = reach * level / tiers * about(0.25, number, side * level);
            const QPointF tip(x + side * out, y);
            const QPointF fork(x + side * out * 0.55, y - 0.02 * height);
            path.lineTo(side > 0 ? tip : fork);
            path.lineTo(side > 0 ? fork : tip);
        }
        if (side > 0) {
            path.lineTo(x + 0.02 * height, ground);
            path.lineTo(x - 0.02 * height, ground);
        }
    }
    path.closeSubpath();
    return path;
}

QPainterPath broadleaf(double x, double ground, double height, int number) {
    QPainterPath path;
    path.addRect(x - 0.03 * height, ground - 0.5 * height, 0.06 * height, 0.5 * height);
    const double breadth = about(0.22, number, 60);
    constexpr int clumps = 17;
    for (int clump = 0; clump < clumps; ++clump) {
        // Evenly over a disc: each a golden angle on.
        const double angle = clump * 2.39996;
        const double out = 0.33 * std::sqrt(clump / static_cast<double>(clumps));
        const double size = 0.105 * height * about(0.4, number, clump);
        const QPointF middle(
            x + out * height * breadth * std::cos(angle) * about(0.3, number, 20 + clump),
            ground - height * (0.57 - out * std::sin(angle) * about(0.2, number, 40 + clump)));
        QPainterPath leaves;
        leaves.addEllipse(middle, size * 1.25, size);
        path = path.united(leaves);
    }
    return path;
}

QPainterPath house(double x, double ground, double width, double height) {
    const double half = width / 2;
    const double eaves = ground - 0.55 * height;
    QPainterPath path(QPointF(x - half, ground + 4));
    path.lineTo(x - half, eaves);
    path.lineTo(x - half - 1.5, eaves);
    path.lineTo(x - 0.55 * half, ground - height);
    path.lineTo(x + 0.55 * half, ground - height);
    path.lineTo(x + half + 1.5, eaves);
    path.lineTo(x + half, eaves);
    path.lineTo(x + half, ground + 4);
    path.closeSubpath();
    QPainterPath chimney;
    chimney.addRect(x + 0.25 * half, ground - 1.15 * height, 2.6, 0.4 * height);
    return path.united(chimney);
}

QPainterPath church(double x, double ground, double height) {
    QPainterPath path = house(x + 0.34 * height, ground, 0.55 * height, 0.42 * height);
    QPainterPath tower(QPointF(x - 0.09 * height, ground + 4));
    tower.lineTo(x - 0.09 * height, ground - 0.52 * height);
    tower.lineTo(x - 0.115 * height, ground - 0.52 * height);
    tower.quadTo(x - 0.03 * height, ground - 0.62 * height, x, ground - height);
    tower.quadTo(x + 0.03 * height, ground - 0.62 * height, x + 0.115 * height, ground - 0.52 * height);
    tower.lineTo(x + 0.09 * height, ground - 0.52 * height);
    tower.lineTo(x + 0.09 * height, ground + 4);
    tower.closeSubpath();
    return path.united(tower);
}

QPainterPath mast(double x, double ground, double height) {
    QPainterPath lines;
    const double foot = 0.055 * height;
    constexpr int fields = 9;
    for (const int side : {-1, 1}) {
        lines.moveTo(x + side * foot, ground + 4);
        lines.lineTo(x, ground - height);
        double place = foot * side;
        for (int field = 1; field < fields; ++field) {
            const double share = field / static_cast<double>(fields);
            const double next = foot * (1 - share) * (field % 2 == 0 ? side : -side);
            lines.moveTo(x + place, ground - height * (field - 1) / fields);
            lines.lineTo(x + next, ground - height * share);
            place = next;
        }
    }
    return thickened(lines, 1.5);
}

DishAerial dishAerial(double x, double ground, double height) {
    // About its middle, looking to the right, in units of its radius.
    QPainterPath bowl(QPointF(0.10, -1));
    bowl.quadTo(-0.72, 0, 0.10, 1);
    bowl.quadTo(-0.30, 0, 0.10, -1);
    QPainterPath struts(QPointF(0.08, -0.72));
    struts.lineTo(0.74, 0);
    struts.lineTo(0.08, 0.72);
    QPainterPath feed;
    feed.addEllipse(QPointF(0.74, 0), 0.10, 0.08);
    QPainterPath hub;
    hub.addEllipse(QPointF(-0.38, 0), 0.20, 0.26);
    QPainterPath rim(QPointF(0.09, -0.97));
    rim.quadTo(-0.29, 0, 0.09, 0.97);

    const double radius = 0.46 * height;
    const QPointF middle(x, ground - height + 0.80 * radius);
    constexpr double tiltDeg = -42;
    const QTransform turn =
        QTransform::fromTranslate(middle.x(), middle.y()).rotate(tiltDeg).scale(radius, radius);
    QPainterPath outline = turn.map(bowl).united(turn.map(hub)).united(turn.map(feed));
    outline = outline.united(thickened(turn.map(struts), 1.7));

    QPainterPath pedestal(QPointF(x - 0.22 * radius - 3, middle.y() + 0.20 * radius));
    pedestal.lineTo(x - 0.22 * radius + 4, middle.y() + 0.20 * radius);
    pedestal.lineTo(x + 0.22 * radius, ground + 4);
    pedestal.lineTo(x - 0.62 * radius, ground + 4);
    pedestal.closeSubpath();
    QPainterPath hut;
    hut.addRect(x + 0.75 * radius, ground - 0.20 * height, 0.36 * height, 0.20 * height + 4);
    return {outline.united(pedestal).united(hut), turn.map(rim)};
}

}  // namespace vantrace
