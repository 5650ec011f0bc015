// The satellites of a group, for the drop-downs of both windows.
#pragma once

#include <string_view>

#include "core/lists.h"

namespace vantrace {

struct ProgramState;
struct Services;

/// The names of all groups.
void fillGroups(DropDown& groups, const ProgramState& state);

/// The names of all favourites.
void fillFavourites(DropDown& favourites, const ProgramState& state);

/// Empties the drop-down, which shows `prompt` from then on, and fills it with the first of each three lines
/// of the group's element file; what is left at its end doesn't count. Yields after each satellite, and
/// leaves when another choice or the window's end has emptied the drop-down meanwhile, or the program ends. A
/// file that isn't there is told in a message. Throws FileError where it can't be read.
void fillSatellites(DropDown& satellites, std::string_view prompt, std::string_view group,
                    const ProgramState& state, Services& services);

}  // namespace vantrace
