// The menus and buttons of the map's window.
#pragma once

#include <string_view>

namespace vantrace {

struct WorldMap;

/// Runs an entry of the menus by its name ("Mworld"); a name that is none does nothing. The entries of the
/// favourites stand in satellite_choice.h.
void runMapEntry(std::string_view entry, WorldMap& world);

/// 0 is real time, 1 time warp.
void BUTtime_Click(WorldMap& world, int Index);
/// 0 shows the notes, 1 the coming passes.
void BUTimode_Click(WorldMap& world, int Index);
void SliderWarp_Change(WorldMap& world);

}  // namespace vantrace
