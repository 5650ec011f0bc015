// Names of satellites for the ear.
#pragma once

#include <string>
#include <string_view>

namespace vantrace {

/// The text to speak for a satellite: hyphens are blanks, and some names are spoken in full. Of several that
/// fit the later one of the table counts.
std::string SpokenName(std::string_view name);

}  // namespace vantrace
