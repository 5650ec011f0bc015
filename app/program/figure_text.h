// Figures as texts, whatever the locale.
#pragma once

#include <string>

namespace vantrace {

/// A number in the fewest digits that read back to the same bits.
std::string shortestText(double value);
/// A number rounded to some decimals; what rounds to zero has no sign.
std::string roundedText(double value, int decimals);

}  // namespace vantrace
