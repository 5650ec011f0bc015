#include "flares/flare_page.h"

#include <stdexcept>
#include <string>

namespace vantrace {

std::size_t FlarePage::find(std::string_view token, std::size_t from) const {
    const std::size_t found = m_text.find(token, from - 1);
    return found == std::string_view::npos ? 0 : found + 1;
}

std::string_view FlarePage::between(std::size_t start, std::size_t end) const {
    if (end < start) {
        throw std::out_of_range("the page ends within the cell at character " + std::to_string(start));
    }
    return m_text.substr(start - 1, end - start);
}

bool FlarePage::hasAt(std::size_t start, std::string_view token) const {
    return start <= m_text.size() && m_text.substr(start - 1).starts_with(token);
}

}  // namespace vantrace
