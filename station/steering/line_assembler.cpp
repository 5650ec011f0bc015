#include "station/steering/line_assembler.h"

#include <algorithm>
#include <utility>

namespace vantrace {

std::vector<std::string> LineAssembler::take(std::string_view bytes) {
    std::vector<std::string> lines;
    while (!bytes.empty()) {
        const std::size_t end = bytes.find('\n');
        const std::string_view part = bytes.substr(0, end);
        // One more for the CR that may end it.
        const std::size_t room = m_longestLine + 2 - std::min(m_begun.size(), m_longestLine + 2);
        m_begun += part.substr(0, room);
        if (end == std::string_view::npos) break;
        bytes.remove_prefix(end + 1);
        if (m_begun.ends_with('\r')) m_begun.pop_back();
        m_begun.resize(std::min(m_begun.size(), m_longestLine + 1));
        lines.push_back(std::exchange(m_begun, {}));
    }
    return lines;
}

}  // namespace vantrace
