// Satellites, and what belongs to the primary one.
#include <string>
#include <string_view>

#include "core/config.h"
#include "core/error_label.h"
#include "core/numbers.h"
#include "core/program_state.h"
#include "core/services.h"
#include "core/sprites.h"
#include "mapview/map_state.h"
#include "mapview/paint/map_layers.h"
#include "mapview/paint/map_surfaces.h"

namespace vantrace {

namespace {

void paintSatellite(const MapFrame& frame, const FavouriteRecord& favourite) {
    constexpr int size = 32;
    constexpr int cornerOffset = 14;
    constexpr int labelOffset = 16;
    const SatelliteLook look = satelliteLook(favourite.Name);
    const Place place = mapPlace(frame, favourite.Latitude, favourite.Longitude);
    Surface& Final = frame.surfaces.Final;
    paintSprite(Final, {place.x - cornerOffset, place.y - cornerOffset}, size,
                frame.surfaces.SatMask[look.picture], frame.surfaces.SatPic[look.picture]);
    Final.movePen(place.x - labelOffset, place.y - look.labelLift);
    Final.setPenColour(colours::white);
    Final.print(frame.services.textPainter, favourite.Name);
}

}  // namespace

SatelliteLook satelliteLook(std::string_view name) {
    SatelliteLook look;
    if (name.starts_with("ISS")) look = {1, 24};
    if (name.starts_with("STS")) look = {3, 24};
    if (name.find("P3D") != std::string_view::npos) look = {4, 16};
    if (name.find("AO-40") != std::string_view::npos) look = {4, 16};
    if (name.starts_with("NOAA")) look = {5, 21};
    return look;
}

void paintGroundTrack(const MapFrame& frame) {
    constexpr int pointsPerMinute = 2;
    // As one step: from the table's end on every point would fail in the same way.
    frame.label.step([&] {
        if (!isTrue(frame.services, settings::showGroundtrack)) return;
        const double last =
            pointsPerMinute * numberValue(GetConfig(frame.services, settings::groundTrackLen));
        for (int i = 0; i <= last; ++i) {
            const GroundTrackPoint& point = frame.map.GroundTrackPoints[i];
            const Place place = mapPlace(frame, point.Latitude, point.Longitude);
            frame.surfaces.Final.setPenColour(point.Colour);
            frame.surfaces.Final.plot(place.x, place.y);
        }
    });
}

void paintFootprint(const MapFrame& frame) {
    constexpr int lastPoint = 360;
    constexpr int step = 2;
    frame.label.step([&] {
        if (!isTrue(frame.services, settings::showFootprints)) return;
        frame.surfaces.Final.setPenColour(colours::orange);
        for (int i = 0; i <= lastPoint; i += step) {
            const MapPoint& point = frame.map.FootprintPoints[i];
            const Place place = mapPlace(frame, point.Latitude, point.Longitude);
            frame.surfaces.Final.plot(place.x, place.y);
        }
    });
}

void paintSatellites(const MapFrame& frame) {
    for (int i = 1; i <= frame.state.FavouriteCount; ++i) {
        frame.label.step([&] { paintSatellite(frame, frame.state.Favourites[i]); });
    }
}

}  // namespace vantrace
