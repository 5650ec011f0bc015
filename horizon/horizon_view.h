// The window `Horizon`: its coming and going, its two timers, its mouse and its menus.
#pragma once

#include <string_view>

#include "horizon/horizon_form.h"
#include "horizon/horizon_surfaces.h"

namespace vantrace {

/// All that the handlers work on.
struct HorizonView {
    HorizonForm& form;
    HorizonSurfaces& surfaces;
    ProgramState& state;
    Services& services;
};

void Form_Load(HorizonView& view);
/// Shows `Main`.
void Form_Unload(HorizonView& view);

/// A frame.
void Timer1Sec_Timer(HorizonView& view);
/// Says where the selected satellite stands, where the user wants to hear it.
void Timer5sec_Timer(HorizonView& view);

/// Selects the favourite closest to a place on `Final`, in pixels, by the sum of the two distances along the
/// axes, and says so; of equals the first.
void Final_MouseDown(HorizonView& view, double X, double Y);

/// Runs an entry of the menus by its name ("Mnorth"); a name that is none does nothing.
void runHorizonEntry(std::string_view entry, HorizonView& view);

/// Gives `Final` the size of the window's inside, and paints it.
void paintPanorama(HorizonView& view);

}  // namespace vantrace
