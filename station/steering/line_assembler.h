// Lines out of the bytes of a connection, as they come.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vantrace {

/// Lines are ended by LF; a CR in front of it belongs to the end. What is longer than the limit is none.
class LineAssembler {
  public:
    explicit LineAssembler(std::size_t longestLine) : m_longestLine(longestLine) {}

    /// The lines that these bytes complete. One that is too long comes as its first bytes, one more than the
    /// limit, so that whoever reads it sees that it is.
    std::vector<std::string> take(std::string_view bytes);
    /// Forgets what has been begun.
    void clear() { m_begun.clear(); }

  private:
    std::size_t m_longestLine;
    std::string m_begun;
};

}  // namespace vantrace
