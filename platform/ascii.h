// Signs of plain texts, whatever the locale.
#pragma once

#include <string_view>

namespace vantrace {

constexpr bool isDigit(char sign) {
    return sign >= '0' && sign <= '9';
}
constexpr bool isCapital(char sign) {
    return sign >= 'A' && sign <= 'Z';
}
constexpr bool isLetter(char sign) {
    return isCapital(sign) || (sign >= 'a' && sign <= 'z');
}

/// Without the blanks and tabs at both ends. A view into the text.
constexpr std::string_view withoutBlanks(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

}  // namespace vantrace
