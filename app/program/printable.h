// Texts from files and from the user, on their way to a terminal.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace vantrace {

/// The text with what could steer a terminal (control characters, also those of 0x80 to 0x9f) and bytes that
/// are no UTF-8 replaced by "?", one for each byte or character.
std::string printable(std::string_view text);

/// Columns that a printable text takes: its characters.
std::size_t displayWidth(std::string_view text);

}  // namespace vantrace
