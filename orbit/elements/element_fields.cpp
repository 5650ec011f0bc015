#include "orbit/elements/element_fields.h"

#include <array>

#include "core/texts.h"
#include "platform/ascii.h"

namespace vantrace {

namespace {

constexpr std::array<double, 19> powersOfTen = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8, 1e9,
                                                1e10, 1e11, 1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18};

}  // namespace

int checkDigit(std::string_view line) {
    int sum = 0;
    for (const char c : line.substr(0, 68)) {
        sum += isDigit(c) ? c - '0' : (c == '-' ? 1 : 0);
    }
    return sum % 10;
}

std::optional<double> decimalField(std::string_view text) {
    text = trimmed(text);
    const bool negative = !text.empty() && text.front() == '-';
    if (!text.empty() && (text.front() == '-' || text.front() == '+')) {
        text.remove_prefix(1);
    }
    // At most 15 digits: the whole number and the power of ten are exact, so one division rounds once.
    std::int64_t digits = 0;
    std::size_t count = 0;
    std::size_t decimals = 0;
    bool pointSeen = false;
    for (const char c : text) {
        if (c == '.' && !pointSeen) {
            pointSeen = true;
        } else if (isDigit(c) && count < 15) {
            digits = digits * 10 + (c - '0');
            ++count;
            decimals += pointSeen ? 1 : 0;
        } else {
            return std::nullopt;
        }
    }
    if (count == 0) {
        return std::nullopt;
    }
    const double value = static_cast<double>(digits) / powersOfTen[decimals];
    return negative ? -value : value;
}

std::optional<std::int32_t> integerField(std::string_view text) {
    std::int32_t value = 0;
    for (const char c : trimmed(text)) {
        if (!isDigit(c) || value > 99999999) {
            return std::nullopt;
        }
        value = value * 10 + (c - '0');
    }
    return value;
}

std::optional<double> assumedPointField(std::string_view text) {
    std::int64_t digits = 0;
    for (const char c : text) {
        if (!isDigit(c) && c != ' ') {
            return std::nullopt;
        }
        digits = digits * 10 + (c == ' ' ? 0 : c - '0');
    }
    return static_cast<double>(digits) / powersOfTen[text.size()];
}

std::optional<double> exponentField(std::string_view text) {
    if (trimmed(text).empty()) {
        return 0.0;
    }
    const char sign = text.front();
    const char exponentSign = text[text.size() - 2];
    const char exponent = text.back();
    const bool signsAreGood = (sign == ' ' || sign == '+' || sign == '-') &&
                              (exponentSign == '+' || exponentSign == '-' || exponentSign == ' ');
    const auto mantissa = assumedPointField(text.substr(1, text.size() - 3));
    if (!signsAreGood || !isDigit(exponent) || !mantissa) {
        return std::nullopt;
    }
    const double scale = powersOfTen[static_cast<std::size_t>(exponent - '0')];
    const double magnitude = exponentSign == '-' ? *mantissa / scale : *mantissa * scale;
    return sign == '-' ? -magnitude : magnitude;
}

}  // namespace vantrace
