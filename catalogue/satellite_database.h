// What is known about satellites, above all their radio frequencies: satellite.dat, records ended by lines
// that begin with "***". A record's first line carries its names; other lines have a key of six characters
// and a value from column 8.
#pragma once

#include <string>
#include <string_view>

namespace vantrace {

struct ProgramState;
struct Services;

/// The entry of a satellite as a text to show, its lines ended by CR LF: that of the first record whose first
/// line holds the trimmed name, "-" and " " taken as one. Empty when there is none, when the file is missing
/// (a message tells) and when it can't be read.
std::string SatelliteDataFunc(ProgramState& state, Services& services, std::string_view name);

}  // namespace vantrace
