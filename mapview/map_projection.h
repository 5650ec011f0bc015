// From places on the earth to places on the map.
#pragma once

#include <string_view>

namespace vantrace {

/// What the map shows: the whole world with Greenwich or with the date line in the middle, a quarter of it,
/// or a half of a hemisphere from 90 W to 90 E.
enum class MapView {
    worldNormal,
    worldAlternative,
    northWest,
    northEast,
    northCentre,
    southWest,
    southEast,
    southCentre
};

/// The view of a word of `Main.Tag`; a word that names none is the whole world.
MapView mapViewOf(std::string_view tag);

bool isNorthern(MapView view);
bool isSouthern(MapView view);

struct SurfaceSize {
    int width = 0;
    int height = 0;

    friend bool operator==(const SurfaceSize&, const SurfaceSize&) = default;
};

/// The surface `Alpha`, on which the shade is drawn, whatever the size of the map.
inline constexpr SurfaceSize alphaSize{566, 370};

/// Pixels from the left edge, between pixels as it falls, of a longitude in degrees WEST, 0 to 360 (others
/// are not folded); beyond the surface for what the view doesn't show.
double longitudeToX(MapView view, int width, double longitudeWestDeg);
/// Pixels from the top edge of a latitude in degrees, north positive.
double latitudeToY(MapView view, int height, double latitudeDeg);

/// The same for the two surfaces of the map and the view that is wanted now; `Final` is the size of the map.
double LongitudeToMapX(const SurfaceSize& Final, std::string_view mainTag, double longitude);
double LatitudeToMapY(const SurfaceSize& Final, std::string_view mainTag, double latitude);
double LongitudeToAlphaX(std::string_view mainTag, double longitude);
double LatitudeToAlphaY(std::string_view mainTag, double latitude);

}  // namespace vantrace
