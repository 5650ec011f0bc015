// The user's favourite satellites: faves.dat, one name per line, names cut to 15 characters.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vantrace {

struct ProgramState;

/// What faves.dat says, read but not rewritten.
struct FavouriteLines {
    /// Trimmed names that occur in the element files, in the file's order.
    std::vector<std::string> qualifying;
    /// Other lines that are not blank, as they stand in the file.
    std::vector<std::string> dropped;
};

/// A line qualifies when it occurs, as it stands, anywhere in the engine's list of satellites. Throws
/// FileError and EngineError.
FavouriteLines readFavouriteLines(const ProgramState& state);

/// Fills `Favourites` with the qualifying lines of faves.dat, then saves them: names that no element file
/// holds any more leave the file. Throws FileError, EngineError, and std::out_of_range for more than 500
/// qualifying lines, of which 500 count; the file is then as it was.
void LoadFavourites(ProgramState& state);

/// Rewrites faves.dat with the entries 1 to 499 whose name isn't blank and counts them in `FavouriteCount`. A
/// 500th entry lives in memory only. Throws FileError, also for a file that could not be read; the file is
/// then as it was.
void SaveFavourites(ProgramState& state);

/// Whether a name is a favourite, to the letter.
bool FavouriteExists(const ProgramState& state, std::string_view name);

}  // namespace vantrace
