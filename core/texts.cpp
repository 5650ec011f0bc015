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

bool startsCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U;
}

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
    for (std::size_t i = 0; i < Text.size(); ++i) {
        if (!startsCharacter(Text[i])) continue;
        if (characters == Width) return std::string(Text.substr(0, i));
        ++characters;
    }
    return std::string(Text) + std::string(Width - characters, ' ');
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
