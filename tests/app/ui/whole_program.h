// Every window of the program over the data that ships, with fakes for the machine around it.
#pragma once

#include "app/ui/all_windows.h"
#include "mapview/map_state.h"
#include "tests/support_qt/view_program.h"

namespace vantrace {

struct WholeProgram : ViewProgram {
    WholeProgram() { registerAllWindows(fakes.host, map, state, services); }

    MapState map;
};

}  // namespace vantrace
