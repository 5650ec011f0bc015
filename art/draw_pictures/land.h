// The land along the lower edge of the landscape: far mountains, woods, and a near rise with a village, all
// of them silhouettes.
#pragma once

#include <QImage>

#include "art/draw_pictures/plane.h"

namespace vantrace {

/// Over a sky, whose colours near the horizon fill the haze between the hills.
void paintLand(Picture& sky);
/// Windows, the lamp on the mast, and the light on the dish.
void paintLamps(QImage& landscape);

}  // namespace vantrace
