// The look of the windows: what they are told of it. How it is drawn is told in core/ui/skin_style.
#pragma once

#include <array>

#include "platform/colour.h"

namespace vantrace {

struct Services;

/// The colours and measures of the one look that there is.
struct SkinValues {
    /// What is pointed at, marked, or has the focus.
    Colour highlight = 65535;
    /// Ordinary text.
    Colour text = 0xDDDDDD;
    /// The back of what is chosen or stands out, with the window's colour for its text.
    Colour accent = 0x00CFD6;
    /// Headings and what is typed.
    Colour strongText = 0xFFFFFF;
    /// Borders, and text that is of little use now.
    Colour border = 0x808080;
    /// The back of the windows.
    Colour back = 0;
    /// Measures of the pictures that a window brings for its skin.
    std::array<int, 6> measures{371, 241, 142, 90, 23, 18};
};

/// The skin object of one window.
struct Skin {
    /// Whether the window has the look; without it is the desktop's own.
    bool isApplied = false;
    SkinValues values;

    /// The skin takes itself away.
    void remove() { isApplied = false; }
};

/// Gives a window the look if the setting "Skin" is "1".
void ApplySkin(Services& services, Skin& skin);

}  // namespace vantrace
