// The rasters of the window `Horizon`: what it paints from, and what it paints.
#pragma once

#include "core/sprites.h"
#include "horizon/kept_landscape.h"
#include "platform/surface.h"

namespace vantrace {

struct ProgramState;
struct Services;

struct HorizonSurfaces : Sprites {
    HorizonSurfaces();

    /// The landscape: the whole circle of azimuth along its width, the horizon at its lower edge. The one of
    /// the design is an evening sky without a land.
    Surface BackDrop;
    KeptLandscape keptLandscape;
    /// The panorama that the user sees.
    Surface Final;
};

/// The sprites, drawn for a device with so many pixels to each of ours. One that is missing is logged as a
/// failure of `Form_Load`, and nothing of it is painted.
void loadSprites(HorizonSurfaces& surfaces, Services& services, double devicePixelsPerPixel);

/// The picture of the setting "HorizonFile" in the program folder. Where there is none, or it can't be loaded
/// (which is logged as a failure of `Form_Load`), `BackDrop` stays as it is.
void loadLandscape(HorizonSurfaces& surfaces, const ProgramState& state, Services& services);

}  // namespace vantrace
