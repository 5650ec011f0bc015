// The epoch of a message as the columns of a line 1.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vantrace {

/// Columns 19 to 32, "YYDDD.DDDDDDDD", of a UTC time in the form "2026-08-06T01:17:37.872384" or
/// "2026-218T01:17:37.872384", with or without a fraction and a "Z": rounded to 1e-8 day, halves up, into the
/// next day and year if need be. Nothing for any other text, for a day that there isn't, and outside the
/// years 1957 to 2056, which is what two digits mean.
std::optional<std::string> epochColumns(std::string_view text);

}  // namespace vantrace
