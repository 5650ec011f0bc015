// One frame of the world map.
#pragma once

namespace vantrace {

struct MapState;
struct MapSurfaces;
struct ProgramState;
struct Services;
struct WorldViewForm;

/// Paints all of `Final` anew for the view of `Main.Tag`, from what the map's routines have left in the
/// tables, the favourites and the pane; and stores the place of a window that is on screen. Yields twice,
/// before the first overlay and before the place is stored. What fails is logged and costs just itself.
void RepaintMapScreen(MapSurfaces& surfaces, const WorldViewForm& form, const MapState& map,
                      const ProgramState& state, Services& services);

}  // namespace vantrace
