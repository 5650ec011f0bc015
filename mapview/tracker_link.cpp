#include "mapview/tracker_link.h"

#include "core/program_state.h"
#include "core/services.h"

namespace vantrace {

void tellTracker(ProgramState& state, Services& services) {
    // The window's load comes before its word.
    if (services.windows.refer("frmTracker") != nullptr) state.TrackerTag = state.PrimarySatName;
}

}  // namespace vantrace
