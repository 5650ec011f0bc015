#include "core/texts.h"

#include <algorithm>
#include <array>

#include "core/numbers.h"

namespace vantrace {

namespace {

constexpr char lower(char sign) {
    return sign >= 'A' && sign <= 'Z' ? static_cast<char>(sign - 'A' + 'a') : sign;
}
constexpr char upper(char sign) {
    return sign >= 'a' && sign <= 'z' ? static_cast<char>(sign - 'a' + 'A') : sign;
}

/// How many bytes the character of UTF-8 has that the text, which isn't empty, starts with; 0 where it starts
/// with none. The ranges are those of RFC 3629, section 4.
std::size_t characterLength(std::string_view text) {
    const auto isIn = [text](std::size_t at, unsigned char first, unsigned char last) {
        if (at >= text.size()) return false;
        const auto byte = static_cast<unsigned char>(text[at]);
        return byte >= first && byte <= last;
    };
    if (isIn(0, 0x00, 0x7F)) return 1;
    if (isIn(0, 0xC2, 0xDF)) return isIn(1, 0x80, 0xBF) ? 2 : 0;
    const bool isOfThree = (isIn(0, 0xE0, 0xE0) && isIn(1, 0xA0, 0xBF)) ||
                           (isIn(0, 0xED, 0xED) && isIn(1, 0x80, 0x9F)) ||
                           (isIn(0, 0xE1, 0xEF) && !isIn(0, 0xED, 0xED) && isIn(1, 0x80, 0xBF));
    if (isOfThree) return isIn(2, 0x80, 0xBF) ? 3 : 0;
    const bool isOfFour = (isIn(0, 0xF0, 0xF0) && isIn(1, 0x90, 0xBF)) ||
                          (isIn(0, 0xF1, 0xF3) && isIn(1, 0x80, 0xBF)) ||
                          (isIn(0, 0xF4, 0xF4) && isIn(1, 0x80, 0x8F));
    return isOfFour && isIn(2, 0x80, 0xBF) && isIn(3, 0x80, 0xBF) ? 4 : 0;
}

bool isUtf8(std::string_view text) {
    while (!text.empty()) {
        const std::size_t length = characterLength(text);
        if (length == 0) return false;
        text.remove_prefix(length);
    }
    return true;
}

/// What Windows-1252 has at 0x80 to 0x9F; the five that it leaves out are unknown characters.
constexpr std::array<std::string_view, 32> windowsSigns{
    "\u20AC", "\uFFFD", "\u201A", "\u0192", "\u201E", "\u2026", "\u2020", "\u2021",
    "\u02C6", "\u2030", "\u0160", "\u2039", "\u0152", "\uFFFD", "\u017D", "\uFFFD",
    "\uFFFD", "\u2018", "\u2019", "\u201C", "\u201D", "\u2022", "\u2013", "\u2014",
    "\u02DC", "\u2122", "\u0161", "\u203A", "\u0153", "\uFFFD", "\u017E", "\u0178"};

}  // namespace

std::string GetDelimitedWord(std::string_view text, int n, std::string_view delimiter) {
    if (delimiter.empty()) return std::string(text);
    std::size_t start = 0;
    for (int word = 2; word <= n; ++word) {
        const std::size_t found = text.find(delimiter, start);
        start = found == std::string_view::npos ? 0 : found + delimiter.size();
    }
    return std::string(text.substr(start, text.find(delimiter, start) - start));
}

bool HasBlank(std::string_view text) {
    return text.find(' ') != std::string_view::npos;
}

std::string MonthDayText(int day, int month) {
    constexpr std::array<std::string_view, 12> names{"JAN", "FEB", "MAR", "APR", "MAY", "JUN",
                                                     "JUL", "AUG", "SEP", "OCT", "NOV", "DEC"};
    std::string text = formatNumber(day, "00") + " ";
    if (month >= 1 && month <= 12) text += names[static_cast<std::size_t>(month - 1)];
    return text;
}

std::string TimeText(int hour, int minute, int second) {
    constexpr long long secondsPerDay = 86400;
    const long long total = (hour * 3600LL + minute * 60LL + second) % secondsPerDay;
    const long long time = total < 0 ? total + secondsPerDay : total;
    const auto twoDigits = [](long long part) { return formatNumber(static_cast<double>(part), "00"); };
    return twoDigits(time / 3600) + ":" + twoDigits(time / 60 % 60) + ":" + twoDigits(time % 60);
}

std::string FixedWidth(std::string_view Text, std::size_t Width) {
    std::size_t characters = 0;
    for (std::size_t i = 0; i < Text.size(); ++characters) {
        if (characters == Width) return std::string(Text.substr(0, i));
        i += std::max(characterLength(Text.substr(i)), std::size_t{1});
    }
    return std::string(Text) + std::string(Width - characters, ' ');
}

std::string asUtf8(std::string_view text) {
    if (isUtf8(text)) return std::string(text);
    std::string result;
    result.reserve(text.size());
    for (const char sign : text) {
        const auto byte = static_cast<unsigned char>(sign);
        if (byte < 0x80) {
            result += sign;
        } else if (byte < 0xA0) {
            result += windowsSigns.at(byte - std::size_t{0x80});
        } else {
            result += byte < 0xC0 ? '\xC2' : '\xC3';
            result += static_cast<char>(0x80U | (byte & 0x3FU));
        }
    }
    return result;
}

std::string_view trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string upperCased(std::string_view text) {
    std::string result(text);
    std::ranges::transform(result, result.begin(), upper);
    return result;
}

std::string lowerCased(std::string_view text) {
    std::string result(text);
    std::ranges::transform(result, result.begin(), lower);
    return result;
}

bool equalsIgnoringCase(std::string_view left, std::string_view right) {
    return std::ranges::equal(left, right, {}, lower, lower);
}

std::string replacedAll(std::string_view text, std::string_view from, std::string_view to) {
    std::string result;
    for (;;) {
        const std::size_t found = from.empty() ? std::string_view::npos : text.find(from);
        result += text.substr(0, found);
        if (found == std::string_view::npos) return result;
        result += to;
        text.remove_prefix(found + from.size());
    }
}

}  // namespace vantrace
