// Lines of a batch, from wherever they come and whatever they are.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "app/program/console.h"

namespace vantrace {

/// One line without its end.
struct BatchLine {
    std::size_t number = 0;  ///< counted from 1
    std::string_view text;   ///< until the next line is asked for
    bool isCut = false;      ///< the line is longer than a line may be; the text is its beginning
};

/// Takes lines ended by LF or CR LF out of a source; the last one needs no end. A UTF-8 mark at the start is
/// passed over. However long a line is, no more than its beginning is held.
class BatchLines {
  public:
    static constexpr std::size_t longestLine = 4096;

    /// `beforeWaiting` is called before bytes are asked for, which may take long.
    BatchLines(ByteSource& source, std::function<void()> beforeWaiting);

    /// Nothing at the end. Throws what the source throws.
    std::optional<BatchLine> next();

  private:
    /// False at the end.
    bool fill();
    void append(std::string_view piece);

    ByteSource& m_source;
    std::function<void()> m_beforeWaiting;
    std::string m_buffer;
    std::string_view m_rest;  ///< of the buffer
    std::string m_line;
    bool m_isCut = false;
    std::size_t m_number = 0;
};

/// Opens a file, or a pipe that somebody writes into. Throws FileError where there is none, for folders and
/// devices, and for a pipe without a writer (it waits for one a little).
std::unique_ptr<ByteSource> openBatchFile(const std::string& path);

}  // namespace vantrace
