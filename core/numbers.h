// Numbers to text and back. None of this looks at the locale of the process.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/machine_format.h"

namespace vantrace {

/// A number by a picture of the signs "0" (a digit in any case), "#" (a digit where it counts), "," (in front
/// of the point: digits in threes) and one ".": 1234.5 is "1,234.50" by "###,0.00", 0.5 is ".5" by "#.0".
/// Fifteen digits of the number count; halves go away from zero; what rounds to zero has no sign. The mark
/// between threes is "," or, with a decimal comma, ".". Throws std::range_error for what is no finite number.
std::string formatNumber(double value, std::string_view picture, char decimalMark = '.');

/// The number in its shortest form of up to 15 digits: "0.5", "-33"; with an exponent,
/// "1E+15" or "1.5E-16", where the point lies outside those digits.
std::string numberText(double value, char decimalMark = '.');

/// The same without the 0 in front of the point: ".5", "-.5".
std::string numberTextWithoutLeadingZero(double value);

/// The number that a text starts with, after blanks, with "." for the decimal mark on every machine; 0 when
/// it starts with none. One beyond the range of a double is the largest double.
double numberValue(std::string_view text);

/// The number that the whole text is, blanks at both ends aside, as the machine writes it; the other one of
/// "." and "," may stand between digits of the whole part and counts for nothing. Nothing where it is none.
std::optional<double> toDouble(std::string_view text, char decimalMark = '.');

/// The nearest whole number, halves to even. Throw std::range_error beyond 16 or 32 bits.
std::int16_t toInteger16(double value);
std::int32_t toInteger32(double value);

/// Whether "1.234" is 1234 on the machine.
bool readsCommaAsDecimalMark(const MachineFormat& format);

}  // namespace vantrace
