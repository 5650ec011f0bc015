// Opening the views, and closing them again whenever `Main` comes back.
#pragma once

#include <string_view>

#include "core/shell/main_form.h"

namespace vantrace {

struct ProgramState;
struct Services;

/// Writes the word of the view, shows its window, and hides `Main` once that window is on the screen. A
/// window that nobody registered leaves all as it is.
void openView(ProgramState& state, Services& services, std::string_view tag, std::string_view window);

/// Every time that `Main` comes back: unloads the views, writes "menu", refreshes the status panel, and opens
/// what the switches of the command line (the first time only) and `NextView` ask for. Where nobody knows the
/// observer's place yet, `frmCONmain` opens beside it, once.
void Form_Activate(MainForm& form, ProgramState& state, Services& services);

}  // namespace vantrace
