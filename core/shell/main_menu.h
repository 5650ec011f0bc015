// What the menu of `Main` does.
#pragma once

#include <string_view>

namespace vantrace {

struct ProgramState;
struct Services;

/// Runs the menu entry of that given name ("Mtabular"). An entry whose window nobody registered does nothing.
/// Throws DesktopError where the desktop can't open what was asked for.
void runMenuEntry(std::string_view entry, ProgramState& state, Services& services);

/// Asks, deletes all settings, and starts the program anew.
void Mreset_Click(Services& services);

/// Tells who made the voice, or that there is none.
void MaboutSP_Click(const ProgramState& state, Services& services);

/// The exit path.
void BUTexit_Click(ProgramState& state, Services& services);

}  // namespace vantrace
