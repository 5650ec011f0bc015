// What the window `Horizon` shows and holds.
#pragma once

#include "core/menu_entry_state.h"
#include "core/skin.h"
#include "core/timer_state.h"
#include "core/window_place.h"

namespace vantrace {

struct HorizonForm {
    /// Whether north is in the middle of the panorama, and south at its edges.
    bool CenteredNorth = false;

    Skin skin;
    TimerState Timer1Sec{1000, false};
    /// The position announcer; its name is older than its interval.
    TimerState Timer5sec{8000, true};
    MenuEntryState Mnorth{false, true};
    MenuEntryState Msouth{true, true};
    MenuEntryState Mposannounce{false, true};

    WindowPlace place;
    /// Counts how often the place came from the settings: then the window goes there.
    unsigned placements = 0;

    /// The window's inside and the device's pixels to each of ours, as the window has them.
    int innerWidth = 0;
    int innerHeight = 0;
    double devicePixelsPerPixel = 1;
    /// The density of screen that the sprites were loaded for; 0 before.
    double spritesFor = 0;

    /// Counts the frames painted.
    unsigned frames = 0;
};

}  // namespace vantrace
