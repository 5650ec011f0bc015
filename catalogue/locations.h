// The places that the map can mark beside the observer's own: locations.dat, one line each, a sign "1"
// (drawn) or "0" (not) and the name behind it, then longitude (degrees WEST), latitude and height (metres),
// with ";" between.
#pragma once

#include <string>
#include <vector>

#include "platform/machine_format.h"

namespace vantrace {

struct ProgramState;

/// Fills `Locations` from locations.dat, up to its first blank line. A line without a name or a height of 16
/// bits, and whatever comes after the 150th place, is skipped and given back. On a machine with a decimal
/// comma the two coordinates get their commas. Throws FileError; the table is then as it was.
std::vector<std::string> LoadLocations(ProgramState& state, const MachineFormat& format);

/// Rewrites locations.dat, up to the first entry without a name; names of blanks only are left out. A table
/// that is full to its end throws std::out_of_range after the file has been written. Throws FileError, also
/// for a file that could not be read; the file is then as it was.
void SaveLocations(ProgramState& state);

}  // namespace vantrace
