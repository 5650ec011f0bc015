// All that the handlers of the map's window work on.
#pragma once

#include "mapview/map_state.h"
#include "mapview/paint/map_surfaces.h"
#include "mapview/world_view_form.h"

namespace vantrace {

struct ProgramState;
struct Services;

struct WorldMap {
    WorldViewForm& form;
    MapState& map;
    MapSurfaces& surfaces;
    ProgramState& state;
    Services& services;
};

}  // namespace vantrace
