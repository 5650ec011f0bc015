// The layers of a frame of the map, each upon those before it.
//
// What fails in one is logged as a failure of the frame and costs just itself.
#pragma once

#include <cstddef>
#include <string_view>

#include "platform/surface.h"

namespace vantrace {

class ErrorLabel;
struct MapState;
struct MapSurfaces;
struct ProgramState;
struct Services;
struct WorldViewForm;

/// What a frame is made from and painted on. All of it may be changed by others where the frame yields: what
/// a layer needs, the view above all, it reads when its turn comes.
struct MapFrame {
    MapSurfaces& surfaces;
    const WorldViewForm& form;
    const MapState& map;
    const ProgramState& state;
    Services& services;
    ErrorLabel& label;
};

/// The small print of the map.
Font mapFont();

/// Where a place on the earth (degrees, longitude WEST) is on `Final`, or beyond it, between pixels as it
/// falls. Throws std::range_error for angles that are no finite numbers.
Place mapPlace(const MapFrame& frame, double latitudeDeg, double longitudeDeg);

/// The part of the world that the view shows, over all of `Final`; black where there is no map. A stretch
/// that fails is logged in the whole world alone.
void paintBackground(const MapFrame& frame);
void paintObserver(const MapFrame& frame);
/// The places that are to be shown, of the first 101 rows. One on the equator or on the meridian of
/// Greenwich is passed over.
void paintLocations(const MapFrame& frame);
void paintSun(const MapFrame& frame);
/// Nothing in compatibility mode.
void paintShade(const MapFrame& frame);
void paintMoon(const MapFrame& frame);
/// The dots of the minutes of the setting "GroundTrackLen". A track longer than the table ends with it, and
/// that is logged once a frame.
void paintGroundTrack(const MapFrame& frame);
void paintFootprint(const MapFrame& frame);
void paintSatellites(const MapFrame& frame);
void paintStatusLine(const MapFrame& frame);
/// What the pane says of the primary satellite.
void paintBottomLine(const MapFrame& frame);

/// The picture of a satellite, and how far above the satellite its name starts, in pixels.
struct SatelliteLook {
    std::size_t picture = 0;
    int labelLift = 14;

    friend bool operator==(const SatelliteLook&, const SatelliteLook&) = default;
};
/// By the name as it is written. Of those that fit the last one counts: a NOAA is a NOAA, whatever else its
/// name holds.
SatelliteLook satelliteLook(std::string_view name);

}  // namespace vantrace
