// How the program starts: the load of `Main`, and the way to its end.
#pragma once

#include <string>

#include "core/shell/main_form.h"

namespace vantrace {

struct ProgramState;
struct Services;

void Form_Initialize(ProgramState& state, Services& services);

/// Makes the engine, checks the data files, loads the catalogue and the observer, and greets. The composition
/// has set `AppPath` and `CommandLine`. A failed step is logged with the phase it belongs to; only a missing
/// data file ends the process.
void Form_Load(MainForm& form, ProgramState& state, Services& services);

/// Favourites, groups, places, the observer, the voice; hands the observer to the engine.
void LoadAllSettings(ProgramState& state, Services& services);

/// One tick: the clock label.
void Timer1_Timer(MainForm& form, Services& services);

/// Closes the windows that hold favourites, groups, places or a job, which stores them; false where the user
/// keeps a job that is in the wizard alone.
bool listsAreSaved(Services& services);
/// Whether the program may end: what is being edited is stored as its window closes, or lost. A window that
/// stays keeps the program: a prediction job that the user doesn't give up, a place that can't be.
bool mayEnd(Services& services);
void Form_QueryUnload(MainForm& form, Services& services);
/// Releases the engine and the windows; the program ends with this.
void Form_Unload(MainForm& form, ProgramState& state, Services& services);

/// Switches the screen to the last of its modes, with another width and height in pixels. Without a mode
/// switch the log tells so, once while the program runs.
void SetDisplayMode(MainForm& form, Services& services, int width, int height);

}  // namespace vantrace
