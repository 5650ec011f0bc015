// The lines of the information pane about the primary satellite.
#pragma once

#include <string>
#include <string_view>

namespace vantrace {

class ErrorLabel;
struct ProgramState;
struct Services;
struct WorldViewForm;

/// Writes the pane's lines 0 to 9 and 17 from the satellite result block. A line that can't be made stays.
void writeSatelliteLines(WorldViewForm& form, const ProgramState& state, const Services& services,
                         ErrorLabel& label, std::string_view name);

/// In range, not today, or the next pass. At exactly 0 degrees a satellite is not in range.
std::string etaLine(const ProgramState& state);

}  // namespace vantrace
