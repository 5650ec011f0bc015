#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace vantrace {

/// Columns of an element line, counted from 1 as the format's description does. The line has at least 69
/// characters.
constexpr std::string_view columns(std::string_view line, std::size_t first, std::size_t last) {
    return line.substr(first - 1, last - first + 1);
}

/// The check digit of the first 68 columns: sum of the digits, a minus counting 1, modulo 10.
int checkDigit(std::string_view line);

/// Fixed columns as a decimal number: blanks around it, an optional sign, digits with at most one point.
/// Nothing else.
std::optional<double> decimalField(std::string_view text);
/// Digits with blanks around them; all blank is 0.
std::optional<std::int32_t> integerField(std::string_view text);
/// Seven digits behind an assumed point; blanks stand for zeros.
std::optional<double> assumedPointField(std::string_view text);
/// Mantissa with an assumed point in front and a signed power of ten of one digit, "-11606-4"; all blank is
/// 0.
std::optional<double> exponentField(std::string_view text);

}  // namespace vantrace
