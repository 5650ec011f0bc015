// Four ways to choose the primary satellite on the map.
#pragma once

#include <cstdint>

namespace vantrace {

struct WorldMap;

/// The entry of a favourite; 0 is the heading, which does nothing.
void MFaveList_Click(WorldMap& world, std::int16_t Index);
/// The next and the previous one of the list, round its ends.
void Mnextsat_Click(WorldMap& world);
void Mprevsat_Click(WorldMap& world);

/// The favourites may have been edited: the primary satellite is looked up among them by its name, and where
/// it is no longer there the first one takes its place.
void keepChoice(WorldMap& world);

/// The right button of the mouse (2) asks for the menu of satellites. Any other chooses the favourite whose
/// place on the map is closest to a place on `Final`, in pixels, by the sum of the two
/// distances along the axes; of equals the first. Without favourites the index becomes 0 and nothing is
/// chosen.
void Final_MouseDown(WorldMap& world, int Button, double X, double Y);

}  // namespace vantrace
