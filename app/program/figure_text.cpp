#include "app/program/figure_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace vantrace {

namespace {

bool isNonZero(char character) {
    return character != '0' && character != '.' && character != '-';
}

}  // namespace

std::string shortestText(double value) {
    if (value == 0.0) return "0";
    // Plain digits as far as that stays readable.
    const double size = std::abs(value);
    const bool isPlain = size >= 1e-6 && size < 1e15;
    std::array<char, 64> text{};
    const auto end =
        isPlain ? std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed)
                : std::to_chars(text.data(), text.data() + text.size(), value);
    return {text.data(), end.ptr};
}

std::string roundedText(double value, int decimals) {
    std::array<char, 400> text{};
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed, decimals);
    std::string result(text.data(), end.ptr);
    if (result.starts_with('-') && std::ranges::none_of(result, isNonZero)) result.erase(0, 1);
    return result;
}

}  // namespace vantrace
