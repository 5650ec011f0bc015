// Where a view's window is, as the settings keep it.
#pragma once

namespace vantrace {

class ErrorLabel;
struct Services;

/// In twips: 1440 of them are an inch, 15 a pixel of a usual screen.
struct WindowPlace {
    float leftTwips = 0;
    float topTwips = 0;
    float widthTwips = 0;
    float heightTwips = 0;
    bool isMinimised = false;
    bool isVisible = false;
};

/// From the settings "WinPosX" and its like. What can't be read is logged and stays.
void readPlace(WindowPlace& place, Services& services, ErrorLabel& label);

/// To the settings, as texts of single-precision numbers; not while the window is minimised or hidden.
void storePlace(const WindowPlace& place, Services& services, ErrorLabel& label);

}  // namespace vantrace
