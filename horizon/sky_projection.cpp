#include "horizon/sky_projection.h"

namespace vantrace {

double AzimuthToX(bool CenteredNorth, int width, double azimuthDeg) {
    constexpr double wholeCircle = 360;
    double angle = azimuthDeg;
    if (CenteredNorth) {
        angle += wholeCircle / 2;
        if (angle > wholeCircle) angle -= wholeCircle;
    }
    return width / wholeCircle * angle;
}

double ElevationToY(int height, double elevationDeg) {
    constexpr double zenith = 90;
    return height / zenith * (zenith - elevationDeg);
}

}  // namespace vantrace
