// Which window stands behind which name.
#pragma once

namespace vantrace {

class WindowHost;
struct MapState;
struct ProgramState;
struct Services;

/// Registers every window of the program at the host's registry. All outlive the registry's windows.
void registerAllWindows(WindowHost& host, MapState& map, ProgramState& state, Services& services);

}  // namespace vantrace
