// What the program itself reads of its element files: the first set of a file, and how old it is. A file
// holds three lines per satellite: the name, line 1, line 2, in the published two-line format; columns count
// from 1.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace vantrace {

struct ProgramState;
struct Services;

/// The bare name of a group's element file: what follows the last "/" of its `Url`, or all of it.
std::string elementFileName(std::string_view url);

/// Finds the first line 1 whose epoch is a number: the answer is the lines in front of it, less 2, so that
/// two reads after the lines numbered 0 to the answer end on it. -1 also where there is no such file. Without
/// any, a message and 0; a message too where it is the very last line of the file. Yields after each line,
/// and leaves with -1 when the program has ended meanwhile.
std::int16_t FindFirstKepLine(ProgramState& state, Services& services, std::string_view bareName);

/// The line that `FindFirstKepLine` leads to: past the lines up to and including number `start`, counted from
/// 0, the second one. Throws FileError, and std::out_of_range where the file ends before.
std::string lineFoundAfter(const ProgramState& state, std::string_view bareName, std::int16_t start);

/// "MM-DD-YYYY" of a local date-time: what `DayOfYear` takes.
std::string monthDayYearText(double localDateTime);

/// The day of the year of a date "MM-DD-YYYY". Every year that 4 divides counts as a leap year.
std::int32_t DayOfYear(std::string_view monthDayYear);

/// Day of the year of the epoch in a line 1: as many characters from column 21 as its first point lies behind
/// column 19, to the nearest whole number, halves to even. So with the point in its usual column 24 one
/// decimal counts: 128.5 is 128, 128.6 is 129. Throws std::invalid_argument without a point at column 19 or
/// later, std::range_error for a number beyond 32 bits.
std::int32_t elementEpochDay(std::string_view line1);

/// 2000 and the two digits of the epoch in a line 1. Throws std::invalid_argument where there are none.
std::int32_t elementEpochYear(std::string_view line1);

/// Makes the names of gps-ops.txt short: "GPS BIIA-10 (PRN 32)" becomes "GPS PRN 32". The first "GPS " line
/// without "(PRN" ends it all, the file as it was: so it works once. Lines that are no such names pass. Tells
/// whether the file is another one now.
bool FixGPSKeps(ProgramState& state, Services& services);

}  // namespace vantrace
