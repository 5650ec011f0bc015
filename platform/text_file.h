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

/// Lines of a text one by one, for files that may hold millions of them: ended by LF or CR LF, the last one
/// needs no end and may have lost half of it. A UTF-8 mark at the start of the text belongs to no line.
class LineReader {
  public:
    /// The text outlives the reader.
    explicit LineReader(std::string_view text);

    bool atEnd() const { return m_rest.empty(); }
    /// The next line without its end; empty at the end of the text.
    std::string_view next();

  private:
    std::string_view m_rest;
};

/// The same as a list. An end that closes the text starts no further line. The lines are views into the text.
std::vector<std::string_view> splitLines(std::string_view text);

}  // namespace vantrace
