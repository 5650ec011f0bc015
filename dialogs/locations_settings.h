// The window `frmCONlocations`: the places on the map beside the observer's own. It edits the table in memory
// and writes the file as it closes.
#pragma once

#include <cstddef>

#include "core/lists.h"
#include "core/skin.h"

namespace vantrace {

struct ProgramState;
struct Services;

/// What the window shows and holds.
struct LocationsForm {
    /// The used part of the table: index 0 is entry 1. The ticked ones are drawn on the map, as far as the
    /// list was not changed since the opening: flags neither come with a new entry nor go with a deleted one.
    TickList ListLocations;
    Skin skin;
};

void Form_Load(LocationsForm& form, ProgramState& state, Services& services);
/// Writes locations.dat. Throws FileError where that fails; the table stays.
void Form_Unload(LocationsForm& form, ProgramState& state, Services& services);

/// The tick of an entry was changed; the flag follows. Beyond the table nothing happens.
void ListLocations_ItemCheck(LocationsForm& form, ProgramState& state, Services& services, std::size_t index,
                             bool isTicked);
/// Asks for name, coordinates and height. Any question left empty ends it; a full table loses the answers.
void BUTaddlocations_Click(LocationsForm& form, ProgramState& state, Services& services);
/// Without a question.
void BUTremovelocations_Click(LocationsForm& form, ProgramState& state, Services& services);

}  // namespace vantrace
