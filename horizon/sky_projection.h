// From directions in the sky to places on the panorama.
#pragma once

namespace vantrace {

/// Pixels from the left edge of a panorama `width` wide, of an azimuth in degrees, 0 to 360 from north over
/// east. North is at both edges, or in the middle; there an azimuth of exactly 180 is at the right edge.
double AzimuthToX(bool CenteredNorth, int width, double azimuthDeg);

/// Pixels from the top edge of a panorama `height` high, of an elevation in degrees: 90 is the top edge, 0
/// the bottom edge, and what is below the horizon lies below the panorama.
double ElevationToY(int height, double elevationDeg);

}  // namespace vantrace
