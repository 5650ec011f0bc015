// What stands on the horizon, as outlines: `x` is the middle and `ground` the foot, in pixels of the picture,
// which count downwards; sizes are in pixels.
#pragma once

#include <QPainterPath>

namespace vantrace {

/// Crooked as the number says.
QPainterPath spruce(double x, double ground, double height, int number);
QPainterPath broadleaf(double x, double ground, double height, int number);
QPainterPath house(double x, double ground, double width, double height);
QPainterPath church(double x, double ground, double height);
/// A lattice mast.
QPainterPath mast(double x, double ground, double height);

/// A dish on its pedestal with a hut beside it, seen from the side, looking up to the right.
struct DishAerial {
    QPainterPath outline;
    /// The rim, which the last light catches.
    QPainterPath rim;
};
DishAerial dishAerial(double x, double ground, double height);

}  // namespace vantrace
