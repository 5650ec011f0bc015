#include "internet/omm/decimal.h"

#include <algorithm>

#include "core/texts.h"
#include "platform/ascii.h"

namespace vantrace {

namespace {

/// Takes a sign from the front of a text; whether it is a minus.
bool takeSign(std::string_view& text) {
    const bool isNegative = text.starts_with('-');
    if (isNegative || text.starts_with('+')) text.remove_prefix(1);
    return isNegative;
}

/// The power of ten behind the sign "E"; nothing where it is none.
std::optional<int> readPower(std::string_view text) {
    constexpr std::size_t mostDigits = 4;
    const bool isNegative = takeSign(text);
    if (text.empty() || text.size() > mostDigits) return std::nullopt;
    int power = 0;
    for (const char c : text) {
        if (!isDigit(c)) return std::nullopt;
        power = power * 10 + (c - '0');
    }
    return isNegative ? -power : power;
}

}  // namespace

std::optional<Decimal> readDecimal(std::string_view text) {
    constexpr std::size_t longest = 100;
    text = trimmed(text);
    if (text.size() > longest) return std::nullopt;
    Decimal number;
    number.isNegative = takeSign(text);
    const std::size_t powerSign = text.find_first_of("eE");
    if (powerSign != std::string_view::npos) {
        const auto power = readPower(text.substr(powerSign + 1));
        if (!power) return std::nullopt;
        number.exponent = *power;
        text = text.substr(0, powerSign);
    }
    const std::size_t point = std::min(text.find('.'), text.size());
    number.digits = text.substr(0, point);
    if (point < text.size()) number.digits += text.substr(point + 1);
    if (number.digits.empty() || !std::ranges::all_of(number.digits, isDigit)) return std::nullopt;

    number.exponent += static_cast<int>(point);
    const std::size_t zeros = std::min(number.digits.find_first_not_of('0'), number.digits.size());
    number.digits.erase(0, zeros);
    number.exponent = number.digits.empty() ? 0 : number.exponent - static_cast<int>(zeros);
    return number;
}

std::optional<std::int64_t> scaledNumber(const Decimal& number, int power, Rounding rounding) {
    constexpr int mostDigits = 18;
    const int wholeDigits = number.exponent + power;
    if (number.digits.empty() || wholeDigits < 0) return 0;
    if (wholeDigits > mostDigits) return std::nullopt;

    const auto digit = [&](int position) {
        const auto at = static_cast<std::size_t>(position);
        return at < number.digits.size() ? number.digits[at] - '0' : 0;
    };
    std::int64_t value = 0;
    for (int position = 0; position < wholeDigits; ++position) value = value * 10 + digit(position);
    if (rounding == Rounding::nearest && digit(wholeDigits) >= 5) ++value;
    return number.isNegative ? -value : value;
}

}  // namespace vantrace
