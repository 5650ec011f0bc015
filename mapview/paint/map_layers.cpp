// The earth, sun and moon, and the lines of text.
#include "mapview/paint/map_layers.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <string>

#include "core/error_label.h"
#include "core/labels.h"
#include "core/numbers.h"
#include "core/program_state.h"
#include "core/services.h"
#include "core/sprites.h"
#include "core/texts.h"
#include "mapview/map_projection.h"
#include "mapview/map_state.h"
#include "mapview/paint/map_surfaces.h"
#include "mapview/paint/shade_painter.h"
#include "mapview/world_view_form.h"

namespace vantrace {

namespace {

/// A region of the map: a quarter of it, from so many of its fourths on.
Area regionOf(const Surface& world, int leftFourths, int topHalves) {
    const double width = toInteger32(world.width() / 2.0);
    const double height = toInteger32(world.height() / 2.0);
    const double quarter = toInteger32(world.width() / 4.0);
    return {leftFourths == 0 ? 0.0 : (leftFourths == 1 ? quarter : width), topHalves * height, width, height};
}

Area sourceArea(MapView view, const Surface& world) {
    switch (view) {
        case MapView::northWest:
            return regionOf(world, 0, 0);
        case MapView::northCentre:
            return regionOf(world, 1, 0);
        case MapView::northEast:
            return regionOf(world, 2, 0);
        case MapView::southWest:
            return regionOf(world, 0, 1);
        case MapView::southCentre:
            return regionOf(world, 1, 1);
        case MapView::southEast:
            return regionOf(world, 2, 1);
        case MapView::worldAlternative:
        case MapView::worldNormal:
            break;
    }
    return {0.0, 0.0, static_cast<double>(world.width()), static_cast<double>(world.height())};
}

/// The date line in the middle: the halves of the map change places. They share the edge between them, so
/// that no column of an odd width is left out.
bool paintHalves(Surface& Final, const Surface& world) {
    const double half = Final.width() / 2.0;
    const double sourceHalf = toInteger32(world.width() / 2.0);
    const double height = Final.height();
    const double sourceHeight = world.height();
    const bool isLeftDone =
        Final.stretch({0.0, 0.0, half, height}, world, {sourceHalf, 0.0, sourceHalf, sourceHeight});
    const bool isRightDone =
        Final.stretch({half, 0.0, half, height}, world, {0.0, 0.0, sourceHalf, sourceHeight});
    return isLeftDone && isRightDone;
}

/// Angles have no thousands: a comma in one is a decimal mark.
double degrees(std::string_view text) {
    return numberValue(replacedAll(text, ",", "."));
}

void paintLocation(const MapFrame& frame, const LocationRecord& location) {
    if (location.Shown != "1") return;
    const double longitude = degrees(location.Longitude);
    const double latitude = degrees(location.Latitude);
    if (longitude == 0.0 || latitude == 0.0) return;
    Surface& Final = frame.surfaces.Final;
    const Place place = mapPlace(frame, latitude, longitude);
    Final.setPenColour(colours::green);
    Final.plot(place.x - 3, place.y - 3);
    Final.print(frame.services.textPainter, location.Name);
}

/// Without "Satellite : ".
std::string_view withoutHeading(std::string_view line) {
    constexpr std::size_t headingLength = 12;
    return line.substr(std::min(headingLength, line.size()));
}

}  // namespace

Font mapFont() {
    return {"Small fonts", 7, true};
}

Place mapPlace(const MapFrame& frame, double latitudeDeg, double longitudeDeg) {
    const SurfaceSize size{frame.surfaces.Final.width(), frame.surfaces.Final.height()};
    const Place place{LongitudeToMapX(size, frame.state.MainTag, longitudeDeg),
                      LatitudeToMapY(size, frame.state.MainTag, latitudeDeg)};
    // A surface passes over what is farther than it can count, and what is printed next would stand wherever
    // its pen was.
    constexpr double farthest = 1e9;
    if (!(std::abs(place.x) <= farthest && std::abs(place.y) <= farthest)) {
        throw std::range_error("a place is beyond any map");
    }
    return place;
}

void paintBackground(const MapFrame& frame) {
    const MapView view = mapViewOf(frame.state.MainTag);
    Surface& Final = frame.surfaces.Final;
    const Surface& world = frame.surfaces.WorldNormal;
    // A window may be too small for a map.
    if (Final.width() == 0 || Final.height() == 0) return;
    const Area all(0, 0, Final.width(), Final.height());
    bool isPainted = false;
    frame.label.step([&] {
        isPainted = view == MapView::worldAlternative ? paintHalves(Final, world)
                                                      : Final.stretch(all, world, sourceArea(view, world));
    });
    if (isPainted) return;
    Final.clear();
    if (view == MapView::worldNormal)
        LogError(frame.services, "World Normal BLiTter", labels::stretchBltError);
}

void paintObserver(const MapFrame& frame) {
    frame.label.step([&] {
        Surface& Final = frame.surfaces.Final;
        const Place place = mapPlace(frame, frame.state.ObserverLatitude, frame.state.ObserverLongitude);
        Final.setPenColour(colours::green);
        Final.circle(place.x + 3, place.y - 3, 1);
        Final.print(frame.services.textPainter, frame.state.ObserverName);
    });
}

void paintLocations(const MapFrame& frame) {
    constexpr int lastLocation = 100;
    for (int i = 0; i <= lastLocation; ++i) {
        frame.label.step([&] { paintLocation(frame, frame.state.Locations[i]); });
    }
}

/// A square sprite, centred on a place.
void paintBody(const MapFrame& frame, double latitude, double longitude, int size, const Surface& mask,
               const Surface& picture) {
    frame.label.step([&] {
        const Place place = mapPlace(frame, latitude, longitude);
        const int half = size / 2;
        paintSprite(frame.surfaces.Final, {place.x - half, place.y - half}, size, mask, picture);
    });
}

void paintSun(const MapFrame& frame) {
    paintBody(frame, frame.map.SunLatitude, frame.map.SunLongitude, 30, frame.surfaces.SunMask,
              frame.surfaces.SunPic);
}

void paintShade(const MapFrame& frame) {
    if (frame.state.CompatibilityMode) return;
    frame.label.step([&] { drawShade(frame.surfaces.Alpha, frame.map, frame.state.MainTag); });
    frame.label.step([&] { blendShade(frame.surfaces.Final, frame.surfaces.Alpha); });
}

void paintMoon(const MapFrame& frame) {
    paintBody(frame, frame.map.MoonLatitude, frame.map.MoonLongitude, 20, frame.surfaces.MoonMask,
              frame.surfaces.MoonPic);
}

void paintStatusLine(const MapFrame& frame) {
    Surface& Final = frame.surfaces.Final;
    Final.movePen(0, 0);
    Final.setPenColour(colours::blue);
    Final.setFont({"Arial", 11, true});
    frame.label.step([&] { Final.print(frame.services.textPainter, " " + frame.map.StatusLine); });
}

void paintBottomLine(const MapFrame& frame) {
    constexpr int height = 20;
    Surface& Final = frame.surfaces.Final;
    Final.setFont(mapFont());
    Final.movePen(0, Final.height() - height);
    Final.setPenColour(isNorthern(mapViewOf(frame.state.MainTag)) ? colours::white : colours::black);
    Final.setFont({"Arial", 8, true});
    frame.label.step([&] {
        const auto& lines = frame.form.RemoteStat;
        Final.print(frame.services.textPainter, " " + std::string(withoutHeading(lines[0])) + "  " +
                                                    lines[1] + "  " + lines[2] + "  " + lines[3] + "  " +
                                                    lines[4] + "   " + lines[7]);
    });
}

}  // namespace vantrace
