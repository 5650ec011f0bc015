// The frequencies of a satellite, for the drop-downs of the tracker.
#pragma once

#include <string_view>

namespace vantrace {

struct ProgramState;
struct Services;
struct TrackerForm;

/// Fills both drop-downs from what satellite.dat tells of the satellite, and chooses the first of each; "0"
/// where there is none.
void UpdateCombos(TrackerForm& form, ProgramState& state, Services& services, std::string_view name);

}  // namespace vantrace
