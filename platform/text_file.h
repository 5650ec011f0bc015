// Reading files that may be anything.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "platform/file_error.h"

namespace vantrace {

/// The bytes of a regular file. Throws FileError where there is none, where it can't be read, where it is a
/// folder, a pipe or a device, and where it holds more than `limitBytes`. Never waits for a writer.
std::string readTextFile(const std::filesystem::path& path, std::size_t limitBytes);

/// The lines of a text, ended by LF or CR LF, without their ends. A last line needs no end; an end that
/// closes the text starts no further line. The lines are views into the text.
std::vector<std::string_view> splitLines(std::string_view text);

}  // namespace vantrace
