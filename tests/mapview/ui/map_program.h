// The map's window, opened by `Main` as at a start with "/world".
#pragma once

#include "mapview/ui/world_view_window.h"
#include "tests/support_qt/view_program.h"

namespace vantrace {

struct MapProgram : ViewProgram {
    MapProgram() {
        fakes.windows.registerWindow(
            "WorldView", [this] { return std::make_unique<WorldView>(fakes.host, map, state, services); });
    }

    /// Starts the program; the window of the map, or null where none came.
    WorldView* open() {
        start("/world");
        return windowOnScreen<WorldView>();
    }

    MapState map;
};

}  // namespace vantrace
