// Which satellite the antenna follows.
#pragma once

namespace vantrace {

struct ProgramState;
struct Services;

/// Has the window `frmTracker` follow the primary satellite; makes that window if need be.
void tellTracker(ProgramState& state, Services& services);

}  // namespace vantrace
