// Draws the shade.
#pragma once

#include <string_view>

namespace vantrace {

class Surface;
struct MapState;

/// Draws the sunlit part of the earth in white on black on `Alpha`, whose size is alphaSize, for the view of
/// `Main.Tag`.
void drawShade(Surface& Alpha, const MapState& map, std::string_view mainTag);

/// Blends the mask over the map, at low priority of the process where the platform allows that.
void blendShade(Surface& Final, const Surface& Alpha);

}  // namespace vantrace
