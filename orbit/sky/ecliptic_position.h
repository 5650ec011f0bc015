#pragma once

namespace vantrace {

/// A geocentric place by the ecliptic and mean equinox of date: rad, km.
struct EclipticPosition {
    double longitudeRad;
    double latitudeRad;
    double distanceKm;
};

}  // namespace vantrace
