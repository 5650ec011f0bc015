// The landscape behind the panoramic view of the sky: a clear evening long after sunset.
#pragma once

#include <QImage>

namespace vantrace {

/// In pixels. The whole circle of azimuth lies along the width, north at both edges, and the elevations from
/// 90 degrees down to 0 along the height.
inline constexpr int landscapeWidth = 2880;
inline constexpr int landscapeHeight = 1800;

/// Seen from the middle of a pixel.
constexpr double azimuthOf(int x) {
    return (x + 0.5) * 360 / landscapeWidth;
}
constexpr double elevationOf(int y) {
    return 90 - (y + 0.5) * 90 / landscapeHeight;
}

/// The same at every run; the left edge continues the right one. What is printed over it can be read: its top
/// is nearly black, and so is its lower edge.
QImage paintLandscape();

}  // namespace vantrace
