#include "app/program/printable.h"

#include <algorithm>
#include <cstdint>

namespace vantrace {

namespace {

constexpr char replacement = '?';

bool continues(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

/// Bytes of the character that a first byte announces; 0 where it is no first byte.
std::size_t announcedLength(char first) {
    const auto byte = static_cast<unsigned char>(first);
    if (byte < 0x80) return 1;
    if (byte >= 0xC2 && byte < 0xE0) return 2;
    if (byte >= 0xE0 && byte < 0xF0) return 3;
    return byte >= 0xF0 && byte < 0xF5 ? 4 : 0;
}

/// Length of the character that the text starts with; 0 where its bytes are no UTF-8.
std::size_t characterLength(std::string_view text) {
    const std::size_t length = announcedLength(text.front());
    if (length == 0 || length > text.size()) return 0;
    if (!std::ranges::all_of(text.substr(1, length - 1), continues)) return 0;
    const auto first = static_cast<unsigned char>(text[0]);
    const unsigned char second = length > 1 ? static_cast<unsigned char>(text[1]) : 0;
    const bool isOverlong = (first == 0xE0 && second < 0xA0) || (first == 0xF0 && second < 0x90);
    const bool isSurrogate = first == 0xED && second >= 0xA0;
    const bool isTooLarge = first == 0xF4 && second >= 0x90;
    return isOverlong || isSurrogate || isTooLarge ? 0 : length;
}

bool isControl(std::string_view character) {
    const auto first = static_cast<unsigned char>(character[0]);
    if (character.size() == 1) return first < 0x20 || first == 0x7F;
    if (first == 0xC2) return static_cast<unsigned char>(character[1]) < 0xA0;
    // U+2028 to U+202E and U+2066 to U+2069 break lines and turn the direction of what follows.
    if (first != 0xE2 || character.size() != 3) return false;
    const auto second = static_cast<unsigned char>(character[1]);
    const auto third = static_cast<unsigned char>(character[2]);
    return (second == 0x80 && third >= 0xA8 && third <= 0xAE) ||
           (second == 0x81 && third >= 0xA6 && third <= 0xA9);
}

}  // namespace

std::string printable(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    while (!text.empty()) {
        const std::size_t length = characterLength(text);
        const std::string_view character = text.substr(0, std::max<std::size_t>(length, 1));
        if (length == 0 || isControl(character)) {
            result += replacement;
        } else {
            result += character;
        }
        text.remove_prefix(character.size());
    }
    return result;
}

std::size_t displayWidth(std::string_view text) {
    return static_cast<std::size_t>(std::ranges::count_if(text, [](char byte) { return !continues(byte); }));
}

}  // namespace vantrace
