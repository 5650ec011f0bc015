// The rasters of the window `WorldView`: what it paints from, and what it paints.
#pragma once

#include "core/sprites.h"
#include "platform/surface.h"

namespace vantrace {

struct ProgramState;
struct Services;

struct MapSurfaces : Sprites {
    /// `Final` black and without a pixel, with a pen of 2; `Alpha` black with a white brush.
    MapSurfaces();

    /// The map of the world, equirectangular, 180 degrees west at the left edge, north at the top. Without a
    /// pixel where none was loaded.
    Surface WorldNormal;
    /// The sunlit part of the earth, of the size alphaSize.
    Surface Alpha;
    /// The frame that the user sees. Give it another size by resize(), which keeps its pen.
    Surface Final;
};

/// The sprites and masks, drawn for a device with so many pixels to each of ours. One that is missing is
/// logged as a failure of `Form_Load` and stays without a pixel; nothing of it is painted.
void loadSprites(MapSurfaces& surfaces, Services& services, double devicePixelsPerPixel);

/// The picture of the setting "MapFile" in the program folder. Without that file `WorldNormal` is left
/// without a pixel; so it is with one that can't be loaded, which is logged as a failure of `Form_Load`.
void loadMapPicture(MapSurfaces& surfaces, const ProgramState& state, Services& services);

}  // namespace vantrace
