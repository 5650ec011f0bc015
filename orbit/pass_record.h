// What stands in a record of the engine's list of passes.
#pragma once

#include <string>

namespace vantrace {

/// The rise: UTC day number of the time stamp that the record starts with. Throws std::invalid_argument where
/// it starts with none, std::range_error for a year that day numbers don't reach.
double passRiseUtc(const std::string& record);

/// The number that a word of the record is; words count from 1. Throws std::invalid_argument where it is
/// none.
double passNumber(const std::string& record, int word);

/// The words that the program reads: greatest elevation in degrees, length in seconds.
inline constexpr int passElevationWord = 4;
inline constexpr int passLengthWord = 5;

}  // namespace vantrace
