// What the map works out and paints from, beside the state that all windows share.
//
// Angles are degrees, north positive; longitudes are degrees WEST, 0 up to 360.
#pragma once

#include <string>

#include "core/skin.h"
#include "core/table.h"

namespace vantrace {

struct MapPoint {
    double Latitude = 0;
    double Longitude = 0;
};

/// The colours of the ground track: the satellite out of and within the observer's range.
inline constexpr Colour trackBelowHorizonColour = 0x0000FF;
inline constexpr Colour trackAboveHorizonColour = 0xFFFFFF;

struct GroundTrackPoint {
    double Latitude = 0;
    double Longitude = 0;
    vantrace::Colour Colour = 0;
};

struct MapState {
    /// Where the primary satellite will be, every 30 seconds from the time of the calculation on. Behind the
    /// track's end stands what a longer one left.
    Table<GroundTrackPoint, 600> GroundTrackPoints;
    /// The circle within which the primary satellite is above the horizon; every point stands twice.
    Table<MapPoint, 361> FootprintPoints;
    /// The line between day and night, and points just inside the day; of these the last one is not used.
    Table<MapPoint, 360> TerminatorPoints;
    Table<MapPoint, 16> SunSeedPoints;

    /// Where sun and moon stand overhead.
    double SunLatitude = 0;
    double SunLongitude = 0;
    double MoonLatitude = 0;
    double MoonLongitude = 0;

    /// How many satellites are in range, the time, and the day of the year.
    std::string StatusLine;
};

}  // namespace vantrace
