// What the window `WorldView` shows and holds.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "core/menu_entry_state.h"
#include "core/rich_text.h"
#include "core/skin.h"
#include "core/timer_state.h"
#include "core/window_place.h"
#include "mapview/map_projection.h"

namespace vantrace {

inline constexpr std::size_t remoteStatCount = 18;

/// Where things stand in the window, in pixels; it may be too narrow for its pane.
struct MapLayout {
    /// The size of the map.
    SurfaceSize Final;
    /// The bar at the pane's edge.
    int expandLeft = 0;
    int expandHeight = 0;
    /// The pane, and what is below its lines.
    int paneLeft = 0;
    int notesHeight = 0;

    friend bool operator==(const MapLayout&, const MapLayout&) = default;
};

struct WorldViewForm {
    /// Counts the ticks of the slow clock, 0 to 6.
    std::int16_t Timer2Ticks = 0;
    /// Whether the information pane is open.
    bool ShowInfoPaneNow = true;

    /// 0 in real time, otherwise the minutes of simulated time that each frame adds.
    std::int16_t TimeWarp = 0;
    /// The simulated local time. The day runs on past the end of the month.
    std::int16_t WarpHour = 0;
    std::int16_t WarpMinute = 0;
    std::int16_t WarpSecond = 0;
    std::int16_t WarpDay = 0;
    std::int16_t WarpMonth = 0;
    std::int16_t WarpYear = 0;

    /// The lines of the pane, by their numbers: 0 to 9 and 17 the primary satellite, 11 and 12 the sun, 13 to
    /// 16 the moon; 10 stays empty. On screen 17 stands behind 10.
    std::array<std::string, remoteStatCount> RemoteStat{"Please Wait....."};

    /// As it is at the end of each frame, when it is stored.
    WindowPlace place;
    /// Counts how often the place came from the settings: then the window goes there.
    unsigned placements = 0;

    Skin skin;
    TimerState Timer1{2000, false};
    TimerState Timer2{60000, true};
    MenuEntryState MspeechONoff;
    MenuEntryState MrecordONoff;
    MenuEntryState MrecordONoffP;
    /// The menu of satellites: a heading, then the favourites, each at its index. And how often it was made.
    std::vector<std::string> MFaveList{"-Select a Satellite-"};
    unsigned favouriteLists = 0;
    /// Counts how often that menu was asked for at the mouse.
    unsigned popUps = 0;

    /// What is known of the primary satellite, and the coming passes, of which the pane shows one.
    std::string IPtext = "No Information available";
    RichText txtQuickETA;
    /// Which button of each pair is pressed.
    int pressedBUTtime = 0;
    int pressedBUTimode = 0;
    /// Minutes of simulated time, 1 to 60.
    std::int16_t SliderWarp = 1;

    /// The window's inside and the device's pixels to each of ours, as the window has them.
    int innerWidth = 0;
    int innerHeight = 0;
    double devicePixelsPerPixel = 1;
    MapLayout layout;

    /// Counts the frames painted.
    unsigned frames = 0;
    /// The density of screen that the sprites were loaded for; 0 before.
    double spritesFor = 0;
};

/// The colour of a line of the pane: pale cyan for the satellite, yellow for the sun, white for the moon.
constexpr Colour remoteStatColour(std::size_t line) {
    constexpr Colour paleCyan = 0xFFFF80;
    if (line == 11 || line == 12) {
        return colours::yellow;
    }
    return line >= 13 && line <= 16 ? colours::white : paleCyan;
}

}  // namespace vantrace
