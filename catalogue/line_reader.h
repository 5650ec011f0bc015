// Lines of a text one by one, for files that may hold millions of them.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace vantrace {

/// The lines that splitLines gives, without a list of them: ended by LF or CR LF, the last one needs no end.
class LineReader {
  public:
    /// The text outlives the reader.
    explicit LineReader(std::string_view text) : m_rest(text) {}

    bool atEnd() const { return m_rest.empty(); }

    /// The next line without its end; empty at the end of the text.
    std::string_view next() {
        const std::size_t length = std::min(m_rest.find('\n'), m_rest.size());
        std::string_view line = m_rest.substr(0, length);
        const bool ended = length < m_rest.size();
        m_rest.remove_prefix(ended ? length + 1 : length);
        if (ended && line.ends_with('\r')) {
            line.remove_suffix(1);
        }
        return line;
    }

  private:
    std::string_view m_rest;
};

}  // namespace vantrace
