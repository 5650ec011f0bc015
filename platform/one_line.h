// Texts that come out of a field of one line.
#pragma once

#include <string>
#include <string_view>

namespace vantrace {

/// A UTF-8 text without control characters and without line and paragraph separators, which a paste brings
/// along and which would end a line of a file: those at its ends go, each of the others becomes a blank.
/// Blanks stay.
std::string oneLine(std::string_view text);

}  // namespace vantrace
