// What the window `Main` shows and holds.
#pragma once

#include <string>

#include "core/skin.h"
#include "core/timer_state.h"

namespace vantrace {

struct MainForm {
    std::string Caption;
    /// The version.
    std::string Label2;
    /// The status panel: satellites and groups, age of the elements, the place in three lines.
    std::string Dstatus;
    std::string Status2;
    std::string Status3;
    std::string Status4;
    std::string Status5;
    std::string lblSunRiseSet;
    /// The clock.
    std::string LABdatetime;
    TimerState Timer1{1000, true};
    Skin skin;
    /// Nobody has ever told the program where it is; the settings open once, so that he can.
    bool isPlaceUnknown = false;
    /// Whether the log has the line that this platform doesn't switch display modes.
    bool isMissingModeSwitchTold = false;
};

}  // namespace vantrace
