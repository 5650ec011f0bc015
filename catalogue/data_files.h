// The text files of the program folder that name what can be tracked.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

namespace vantrace {

struct ProgramState;

inline constexpr std::string_view favouritesFile = "faves.dat";
inline constexpr std::string_view groupsFile = "groups.dat";
inline constexpr std::string_view locationsFile = "locations.dat";
inline constexpr std::string_view satelliteFile = "satellite.dat";
inline constexpr std::string_view gpsFile = "gps-ops.txt";
inline constexpr std::string_view gpsScratchFile = "gps-ops.new";

/// A larger file is refused rather than read. The lists of the user are short: 500 names fill 8 kB.
inline constexpr std::size_t listLimitBytes = std::size_t{1} << 20;
inline constexpr std::size_t elementFileLimitBytes = std::size_t{64} << 20;
inline constexpr std::size_t satelliteFileLimitBytes = std::size_t{64} << 20;

/// The end of a line in files that are written and in texts of several lines.
inline constexpr std::string_view lineEnd = "\r\n";

/// Where a file of the program folder lies.
std::filesystem::path dataFile(const ProgramState& state, std::string_view bareName);

/// Rewrites a list of the user. One that is there and could not be read is left alone; one that was written
/// is read. Throws FileError; the file is then as it was.
void replaceList(const ProgramState& state, std::string_view bareName, std::string_view content,
                 bool& isUnread);

/// `count` characters from a column that counts from 1; fewer, or none, where the text ends before. Throws
/// std::invalid_argument for a negative count.
std::string_view columnsFrom(std::string_view text, std::size_t first, std::ptrdiff_t count);

}  // namespace vantrace
