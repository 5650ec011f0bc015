// Numbers and words as the fixed columns of element lines.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "internet/omm/decimal.h"

namespace vantrace {

/// A whole number of 0 and more, with zeros in front as far as it is shorter.
std::string withZeros(std::int64_t value, std::size_t width);

/// `value` in units of the last of `decimals` places, right-justified: 512 of 4 places in 8 columns is
/// "  0.0512". Nothing where it doesn't fit or is negative.
std::optional<std::string> fixedColumns(std::int64_t value, int decimals, std::size_t width);

/// Columns 34 to 43: sign, point and eight places. Nothing for 1 and more.
std::optional<std::string> derivativeColumns(const Decimal& number);

/// Eight columns: sign, five digits behind an assumed point, sign and digit of the power of ten. What is too
/// small for its power has fewer digits, down to zero. Nothing for what is too large.
std::optional<std::string> exponentColumns(const Decimal& number);

/// Five columns, numbers from 100000 to 339999 in the Alpha-5 form; nothing for numbers beyond.
std::optional<std::string> catalogNumberColumns(std::int64_t number);

/// "98067A  " of "1998-067A"; blanks for what isn't of that form.
std::string designatorColumns(std::string_view objectId);

}  // namespace vantrace
