#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <stdexcept>

#include "core/numbers.h"

namespace vantrace {

namespace {

constexpr int significantDigits = 15;

/// A number as it is written out: a sign, digits d1 d2 d3 ..., and where the point stands among them.
struct Decimal {
    bool isNegative = false;
    std::string digits;
    /// So many digits stand in front of the point; below 0, zeros follow it first.
    int pointAfter = 0;
};

Decimal decimalOf(double value) {
    if (!std::isfinite(value)) throw std::range_error("a number that isn't finite has no text");
    std::array<char, 40> buffer{};
    const std::to_chars_result written =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::abs(value),
                      std::chars_format::scientific, significantDigits - 1);
    const std::string_view text(buffer.data(), static_cast<std::size_t>(written.ptr - buffer.data()));
    const std::size_t exponentMark = text.find('e');
    // from_chars takes no plus sign.
    const std::size_t exponentStart = exponentMark + (text[exponentMark + 1] == '+' ? 2 : 1);
    int exponent = 0;
    std::from_chars(text.data() + exponentStart, written.ptr, exponent);

    Decimal decimal{std::signbit(value), std::string(text.substr(0, exponentMark)), exponent + 1};
    std::erase(decimal.digits, '.');
    return decimal;
}

/// Cuts behind so many decimals; the digit behind the cut decides, so halves go away from zero.
void roundTo(Decimal& decimal, int decimals) {
    const int kept = decimal.pointAfter + decimals;
    if (kept >= significantDigits) return;
    if (kept < 0) {
        decimal.digits = "0";
        decimal.pointAfter = 1;
        return;
    }
    const bool isUp = decimal.digits[static_cast<std::size_t>(kept)] >= '5';
    decimal.digits.resize(static_cast<std::size_t>(kept));
    decimal.digits.insert(0, 1, '0');
    ++decimal.pointAfter;
    for (std::size_t i = decimal.digits.size(); isUp && i-- > 0;) {
        if (decimal.digits[i] != '9') {
            ++decimal.digits[i];
            break;
        }
        decimal.digits[i] = '0';
    }
}

char digitAt(const Decimal& decimal, int position) {
    const bool isThere = position >= 0 && position < static_cast<int>(decimal.digits.size());
    return isThere ? decimal.digits[static_cast<std::size_t>(position)] : '0';
}

/// The digits in front of the point, without leading zeros.
std::string wholePart(const Decimal& decimal) {
    std::string whole;
    for (int i = 0; i < decimal.pointAfter; ++i) whole += digitAt(decimal, i);
    whole.erase(0, std::min(whole.find_first_not_of('0'), whole.size()));
    return whole;
}

std::string decimals(const Decimal& decimal, int count) {
    std::string text;
    for (int i = 0; i < count; ++i) text += digitAt(decimal, decimal.pointAfter + i);
    return text;
}

void dropTrailingZeros(std::string& text, std::size_t shortest) {
    while (text.size() > shortest && text.back() == '0') text.pop_back();
}

struct Picture {
    std::size_t leastWholeDigits = 0;
    bool inThrees = false;
    bool hasPoint = false;
    std::size_t leastDecimals = 0;
    int mostDecimals = 0;
};

Picture pictureOf(std::string_view text) {
    Picture picture;
    const std::size_t point = text.find('.');
    picture.hasPoint = point != std::string_view::npos;
    std::string whole(text.substr(0, point));
    picture.inThrees = std::erase(whole, ',') > 0;
    const std::size_t firstZero = whole.find('0');
    picture.leastWholeDigits = firstZero == std::string::npos ? 0 : whole.size() - firstZero;
    if (picture.hasPoint) {
        const std::string_view fraction = text.substr(point + 1);
        picture.mostDecimals = static_cast<int>(fraction.size());
        // The position behind the last zero; without one npos + 1, which is none.
        picture.leastDecimals = fraction.rfind('0') + 1;
    }
    return picture;
}

std::string withoutExponent(const Decimal& decimal, char decimalMark) {
    std::string text = wholePart(decimal);
    if (text.empty()) text = "0";
    // Digits far behind the point take more places than there are digits.
    std::string fraction = decimals(decimal, std::max(0, significantDigits - decimal.pointAfter));
    dropTrailingZeros(fraction, 0);
    return fraction.empty() ? text : text + decimalMark + fraction;
}

std::string withExponent(const Decimal& decimal, char decimalMark) {
    std::string text = decimal.digits.substr(0, 1) + decimalMark + decimal.digits.substr(1);
    dropTrailingZeros(text, 2);
    if (text.size() == 2) text.pop_back();
    const int exponent = decimal.pointAfter - 1;
    const std::string size = std::to_string(std::abs(exponent));
    return text + (exponent < 0 ? "E-" : "E+") + (size.size() < 2 ? "0" : "") + size;
}

}  // namespace

std::string formatNumber(double value, std::string_view picture, char decimalMark) {
    const Picture wanted = pictureOf(picture);
    Decimal decimal = decimalOf(value);
    roundTo(decimal, wanted.mostDecimals);

    std::string whole = wholePart(decimal);
    std::string fraction = decimals(decimal, wanted.mostDecimals);
    const bool isZero = whole.empty() && fraction.find_first_not_of('0') == std::string::npos;
    if (whole.size() < wanted.leastWholeDigits) whole.insert(0, wanted.leastWholeDigits - whole.size(), '0');
    if (wanted.inThrees) {
        const char groupMark = decimalMark == ',' ? '.' : ',';
        for (std::size_t i = whole.size(); i > 3; i -= 3) whole.insert(i - 3, 1, groupMark);
    }
    dropTrailingZeros(fraction, wanted.leastDecimals);

    std::string text = decimal.isNegative && !isZero ? "-" : "";
    text += whole;
    if (wanted.hasPoint) text += decimalMark + fraction;
    return text;
}

std::string numberText(double value, char decimalMark) {
    if (value == 0) return "0";
    const Decimal decimal = decimalOf(value);
    const bool isPlain = decimal.pointAfter > -significantDigits && decimal.pointAfter <= significantDigits;
    return (decimal.isNegative ? "-" : "") +
           (isPlain ? withoutExponent(decimal, decimalMark) : withExponent(decimal, decimalMark));
}

std::string numberTextWithoutLeadingZero(double value) {
    std::string text = numberText(value);
    const std::size_t start = text.starts_with('-') ? 1 : 0;
    if (text.compare(start, 2, "0.") == 0) text.erase(start, 1);
    return text;
}

}  // namespace vantrace
