// What the window `WorldView` shows and holds.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

#include "core/skin.h"

namespace vantrace {

inline constexpr std::size_t remoteStatCount = 18;

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
};

/// The colour of a line of the pane: pale cyan for the satellite, yellow for the sun, white for the moon.
constexpr Colour remoteStatColour(std::size_t line) {
    constexpr Colour paleCyan = 0xFFFF80;
    constexpr Colour yellow = 0x00FFFF;
    constexpr Colour white = 0xFFFFFF;
    if (line == 11 || line == 12) {
        return yellow;
    }
    return line >= 13 && line <= 16 ? white : paleCyan;
}

}  // namespace vantrace
