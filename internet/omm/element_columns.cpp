#include "internet/omm/element_columns.h"

#include <algorithm>
#include <cstdlib>

#include "platform/ascii.h"

namespace vantrace {

std::string withZeros(std::int64_t value, std::size_t width) {
    const std::string digits = std::to_string(value);
    return std::string(width - std::min(width, digits.size()), '0') + digits;
}

std::optional<std::string> fixedColumns(std::int64_t value, int decimals, std::size_t width) {
    const auto places = static_cast<std::size_t>(decimals);
    std::string text = withZeros(value, places + 1);
    if (places > 0) text.insert(text.size() - places, 1, '.');
    if (value < 0 || text.size() > width) return std::nullopt;
    return std::string(width - text.size(), ' ') + text;
}

std::optional<std::string> derivativeColumns(const Decimal& number) {
    constexpr std::int64_t one = 100000000;
    const auto value = scaledNumber(number, 8);
    if (!value || *value >= one || *value <= -one) return std::nullopt;
    return (*value < 0 ? "-." : " .") + withZeros(std::abs(*value), 8);
}

std::optional<std::string> exponentColumns(const Decimal& number) {
    constexpr int places = 5;
    constexpr std::int64_t one = 100000;
    constexpr int largestPower = 9;
    int power = std::max(number.exponent, -largestPower);
    auto mantissa = scaledNumber(number, places - power);
    if (mantissa && (*mantissa == one || *mantissa == -one)) {
        *mantissa /= 10;
        ++power;
    }
    if (!mantissa || power > largestPower) return std::nullopt;
    if (*mantissa == 0) power = 0;
    return (*mantissa < 0 ? "-" : " ") + withZeros(std::abs(*mantissa), places) + (power < 0 ? "-" : "+") +
           std::to_string(std::abs(power));
}

std::optional<std::string> catalogNumberColumns(std::int64_t number) {
    constexpr std::string_view letters = "ABCDEFGHJKLMNPQRSTUVWXYZ";
    constexpr std::int64_t numbersOfLetter = 10000;
    if (number < 0) return std::nullopt;
    if (number < 10 * numbersOfLetter) return withZeros(number, 5);
    const auto letter = static_cast<std::size_t>(number / numbersOfLetter - 10);
    if (letter >= letters.size()) return std::nullopt;
    return letters[letter] + withZeros(number % numbersOfLetter, 4);
}

std::string designatorColumns(std::string_view objectId) {
    constexpr std::string_view shape = "0000-000";
    constexpr std::size_t width = 8;
    std::string blanks(width, ' ');
    const std::string_view piece = objectId.substr(std::min(shape.size(), objectId.size()));
    if (piece.empty() || piece.size() > 3 || !std::ranges::all_of(piece, isCapital)) return blanks;
    for (std::size_t i = 0; i < shape.size(); ++i) {
        if (shape[i] == '-' ? objectId[i] != '-' : !isDigit(objectId[i])) return blanks;
    }
    std::string text(objectId.substr(2, 2));
    text += objectId.substr(5);
    return text + blanks.substr(text.size());
}

}  // namespace vantrace
