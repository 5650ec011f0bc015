// The shade: the sunlit part of the earth as an outline that is filled from a few seeds and then blended over
// the map. What is to be drawn is told here as plain data, in the order of drawing.
//
// For each frame: `Alpha` is cleared to black, with a pen and a brush in white and the pen 2 wide; the
// outline; a flood fill up to white from each seed; the priority of the process is lowered; the blends; it is
// raised.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>
#include <vector>

#include "mapview/map_state.h"

namespace vantrace {

/// One step of the pen on `Alpha`, in pixels, which may lie off the surface and between pixels.
struct PenStep {
    enum class Kind {
        plot,   ///< a dot there
        lineTo  ///< a line from where the pen is
    };
    Kind kind = Kind::plot;
    double x = 0;
    double y = 0;

    friend bool operator==(const PenStep&, const PenStep&) = default;
};

/// A pixel of `Alpha`, which may lie off the surface: then there is nothing to fill.
struct SeedPixel {
    std::int32_t x = 0;
    std::int32_t y = 0;

    friend bool operator==(const SeedPixel&, const SeedPixel&) = default;
};

struct PixelArea {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    friend bool operator==(const PixelArea&, const PixelArea&) = default;
};

/// A part of `Alpha` that is blended over a part of the map, at its size.
struct ShadeBlend {
    PixelArea destination;
    PixelArea source;

    friend bool operator==(const ShadeBlend&, const ShadeBlend&) = default;
};

inline constexpr int shadePenWidth = 2;
inline constexpr Colour shadeColour = 0xFFFFFF;
/// How much of `Alpha` is in the blend, of 255.
inline constexpr int shadeAlpha = 40;

/// The line between day and night, for the view of `Main.Tag`. Where it runs off one side of a map it goes on
/// from the other: there a point lies more than 500 pixels from the one before, in every view.
std::vector<PenStep> shadeOutline(const MapState& map, std::string_view mainTag);

/// Where to fill. Several, since the line may divide the surface into more than one piece of day.
std::array<SeedPixel, 16> shadeSeeds(const MapState& map, std::string_view mainTag);

/// The blends over a map of that size, a quarter each; halves of odd sizes are rounded to even.
std::array<ShadeBlend, 4> shadeBlends(int finalWidth, int finalHeight);

}  // namespace vantrace
