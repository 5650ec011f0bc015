#include "mapview/map_projection.h"

#include "core/view_words.h"

namespace vantrace {

MapView mapViewOf(std::string_view tag) {
    constexpr std::array views = {MapView::northWest, MapView::northCentre, MapView::northEast,
                                  MapView::southWest, MapView::southCentre, MapView::southEast};
    static_assert(views.size() == mainTag::regions.size());
    const auto* const region = std::ranges::find(mainTag::regions, tag);
    if (region != mainTag::regions.end()) {
        return views[static_cast<std::size_t>(region - mainTag::regions.begin())];
    }
    return tag == mainTag::worldAlt ? MapView::worldAlternative : MapView::worldNormal;
}

bool isNorthern(MapView view) {
    return view == MapView::northWest || view == MapView::northEast || view == MapView::northCentre;
}

bool isSouthern(MapView view) {
    return view == MapView::southWest || view == MapView::southEast || view == MapView::southCentre;
}

double longitudeToX(MapView view, int width, double longitudeWestDeg) {
    const double pixelsPerDegree = width / 360.0;
    const double x = longitudeWestDeg <= 180.0
                         ? pixelsPerDegree * (180.0 - longitudeWestDeg)
                         : pixelsPerDegree * (180.0 - (longitudeWestDeg - 180.0)) + width * 180.0 / 360.0;
    switch (view) {
        case MapView::northWest:
        case MapView::southWest:
            return 2.0 * x;
        case MapView::northEast:
        case MapView::southEast:
            return 2.0 * x - pixelsPerDegree * 360.0;
        case MapView::northCentre:
        case MapView::southCentre:
            return 2.0 * x - pixelsPerDegree * 180.0;
        case MapView::worldAlternative: {
            const double shifted = x - pixelsPerDegree * 180.0;
            return shifted < 0.0 ? shifted + pixelsPerDegree * 360.0 : shifted;
        }
        case MapView::worldNormal:
            break;
    }
    return x;
}

double latitudeToY(MapView view, int height, double latitudeDeg) {
    const double pixelsPerDegree = height / 180.0;
    const double y = (180.0 - latitudeDeg - 90.0) * pixelsPerDegree;
    if (isNorthern(view)) {
        return 2.0 * y;
    }
    if (isSouthern(view)) {
        return 2.0 * y - pixelsPerDegree * 180.0;
    }
    return y;
}

double LongitudeToMapX(const SurfaceSize& Final, std::string_view mainTag, double longitude) {
    return longitudeToX(mapViewOf(mainTag), Final.width, longitude);
}

double LatitudeToMapY(const SurfaceSize& Final, std::string_view mainTag, double latitude) {
    return latitudeToY(mapViewOf(mainTag), Final.height, latitude);
}

double LongitudeToAlphaX(std::string_view mainTag, double longitude) {
    return longitudeToX(mapViewOf(mainTag), alphaSize.width, longitude);
}

double LatitudeToAlphaY(std::string_view mainTag, double latitude) {
    return latitudeToY(mapViewOf(mainTag), alphaSize.height, latitude);
}

}  // namespace vantrace
