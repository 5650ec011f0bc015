// Pictures that are laid upon another one, with a mask for each: sun, moon and satellites.
#pragma once

#include <array>
#include <cstddef>
#include <string>

#include "platform/surface.h"

namespace vantrace {

class ErrorLabel;
struct Services;

/// How many pictures there are for satellites.
inline constexpr std::size_t satellitePictureCount = 6;

/// The mask cuts a hole, the picture is laid into it: a square of `size` pixels with its top left corner at a
/// place that is rounded to whole pixels, halves to even. Throws std::range_error for a place beyond 32 bits.
void paintSprite(Surface& target, const Place& corner, int size, const Surface& mask, const Surface& picture);

/// Sprites: black where the picture below shows through. Masks: white there, and black where the sprite
/// shows.
struct Sprites {
    Surface SunPic;
    Surface SunMask;
    Surface MoonPic;
    Surface MoonMask;
    std::array<Surface, satellitePictureCount> SatPic;
    std::array<Surface, satellitePictureCount> SatMask;

    /// Those drawn for a device with so many pixels to each of ours; of the moons that of the name. One that
    /// is missing is logged under the label and stays without a pixel; nothing of it is painted.
    void load(Services& services, ErrorLabel& label, double devicePixelsPerPixel, const std::string& moon);
};

}  // namespace vantrace
