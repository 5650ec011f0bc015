// flares.dat: the list of the last retrieval that went well.
#pragma once

#include <cstddef>
#include <filesystem>

#include "flares/flare_list.h"

namespace vantrace {

/// A longer file is neither written nor read. A week's flares fill some 3 kB.
inline constexpr std::size_t flareFileLimitBytes = std::size_t{8} << 20;

/// Writes the file anew, whole: one line for each row, its eight texts joined by ";", ended by CR LF. Throws
/// FileError, also for a list that is too long; the old file is then untouched.
void saveFlares(const std::filesystem::path& file, const FlareList& list);

/// Puts the rows of the file behind those that are there. A line of seven ";" alone ends the reading. A line
/// with fewer words than eight has its first ones again in the columns that are left (see GetDelimitedWord).
/// Throws FileError where it can't be read, and where it has more rows than a list may have; those before
/// are taken.
void loadFlares(const std::filesystem::path& file, FlareList& list);

}  // namespace vantrace
