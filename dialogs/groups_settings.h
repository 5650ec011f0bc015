// The window `frmCONGroups`: which element files the program knows, and which satellites are favourites. It
// edits the tables in memory and writes both files as it closes; there is no way back.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "core/lists.h"
#include "core/skin.h"

namespace vantrace {

struct ProgramState;
struct Services;

/// A public element file, and what it is called.
struct ElementFileRow {
    std::string_view label;
    std::string_view file;
};

/// Those that the element server has, in the order of the list.
std::span<const ElementFileRow> publicElementFiles();

/// What the window shows and holds.
struct GroupsForm {
    NameList GroupList;
    /// The satellites of a group; the ticked ones are favourites.
    TickList SatelliteList;
    /// What is known about the selected satellite.
    std::string Details = "No Information.";
    DropDown COMCelestrak{"Select a Celestrak Group", {}};
    /// Whether a tick is the user's own, and so changes the favourites.
    bool UserIsChecking = false;
    /// Whether the warning about the three-dimensional view was given.
    bool Warned3D = false;
    /// Counts the choices of a group.
    unsigned groupClicks = 0;
    Skin skin;
};

/// Selects the first group, whose file may be missing.
void Form_Load(GroupsForm& form, ProgramState& state, Services& services);
/// Writes faves.dat and groups.dat. A group that found no room in the table counts no more. Throws FileError
/// where a disk doesn't take one of them, after it has tried both.
void Form_Unload(GroupsForm& form, ProgramState& state, Services& services);

/// Lists the satellites of the selected group. The real sets count alone: those with an epoch. Where the file
/// is missing a message tells, and the list stays as it was. Yields.
void GroupList_Click(GroupsForm& form, ProgramState& state, Services& services);

/// Between these two a tick is the user's.
void SatelliteList_MouseDown(GroupsForm& form);
void SatelliteList_MouseUp(GroupsForm& form);
/// The user ticked an entry, or took its tick away.
void tickSatellite(GroupsForm& form, ProgramState& state, Services& services, std::size_t index,
                   bool isTicked);
/// Tells what is known about the selected satellite.
void SatelliteList_Click(GroupsForm& form, ProgramState& state, Services& services);
/// Asks for more where nothing is known.
void Details_Click(GroupsForm& form, ProgramState& state, Services& services);

/// Buttons. Select All and Deselect All leave `UserIsChecking` set, until the mouse is released over the list
/// the next time; so a group that is chosen then has its favourites added once more.
void BUTsel_Click(GroupsForm& form, ProgramState& state, Services& services);
void BUTdesel_Click(GroupsForm& form, ProgramState& state, Services& services);
/// Puts the selected satellite into entry 1. One that is no favourite drives out the one that was there.
void BUTmakeprime_Click(GroupsForm& form, ProgramState& state, Services& services);
void BUTfindInfo_Click(GroupsForm& form, ProgramState& state, Services& services);
/// A group beyond the table's bound comes into the list and is counted, but not stored.
void BUTaddCelestrak_Click(GroupsForm& form, ProgramState& state, Services& services);
void BUTaddgroup_Click(GroupsForm& form, ProgramState& state, Services& services);
/// Without a question; the element file and the favourites stay.
void BUTdeletegroup_Click(GroupsForm& form, ProgramState& state, Services& services);

}  // namespace vantrace
