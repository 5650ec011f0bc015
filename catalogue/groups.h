// The groups of satellites, one element file each: groups.dat, lines of name, address and flag with ","
// between.
#pragma once

namespace vantrace {

struct ProgramState;

/// Fills `Groups` and `GroupCount` from groups.dat, up to its first blank line. The flag is the last
/// character of the line, whatever the third field holds. Clears the names behind the last group, but only up
/// to entry 20. Throws FileError, and std::out_of_range for more than 40 lines; the count is then 40.
void LoadGroups(ProgramState& state);

/// Rewrites groups.dat with the counted groups whose name isn't blank. Throws FileError, also for a file that
/// could not be read, and std::out_of_range for a count beyond the table; the file is then as it was.
void SaveGroups(ProgramState& state);

}  // namespace vantrace
