#include "platform/one_line.h"

#include <cstddef>

namespace vantrace {

namespace {

/// How many bytes the control character or the separator has that stands at the start of a text; 0 where
/// another one stands there.
std::size_t controlLength(std::string_view text) {
    const auto byte = [&](std::size_t index) {
        return index < text.size() ? static_cast<unsigned char>(text[index]) : 0U;
    };
    if (byte(0) < 0x20U || byte(0) == 0x7FU) return 1;
    // U+0080 to U+009F.
    if (byte(0) == 0xC2U && byte(1) >= 0x80U && byte(1) <= 0x9FU) return 2;
    // U+2028 and U+2029.
    if (byte(0) == 0xE2U && byte(1) == 0x80U && (byte(2) == 0xA8U || byte(2) == 0xA9U)) return 3;
    return 0;
}

}  // namespace

std::string oneLine(std::string_view text) {
    std::string line;
    std::size_t blanksWanted = 0;
    while (!text.empty()) {
        if (const std::size_t length = controlLength(text); length > 0) {
            ++blanksWanted;
            text.remove_prefix(length);
            continue;
        }
        if (!line.empty()) line.append(blanksWanted, ' ');
        blanksWanted = 0;
        line += text.front();
        text.remove_prefix(1);
    }
    return line;
}

}  // namespace vantrace
