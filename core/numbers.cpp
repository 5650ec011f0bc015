#include "core/numbers.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <locale>
#include <sstream>
#include <stdexcept>

#include "core/texts.h"
#include "platform/ascii.h"

namespace vantrace {

namespace {

std::size_t skipDigits(std::string_view text, std::size_t from) {
    while (from < text.size() && isDigit(text[from])) ++from;
    return from;
}

/// How many signs of the text are a number, from its start: sign, digits, point, digits, exponent.
std::size_t numberLength(std::string_view text) {
    const std::size_t start = !text.empty() && (text[0] == '-' || text[0] == '+') ? 1 : 0;
    std::size_t end = skipDigits(text, start);
    std::size_t digits = end - start;
    if (end < text.size() && text[end] == '.') {
        const std::size_t decimalsEnd = skipDigits(text, end + 1);
        digits += decimalsEnd - end - 1;
        end = decimalsEnd;
    }
    if (digits == 0) return 0;
    if (end < text.size() && (text[end] == 'e' || text[end] == 'E')) {
        std::size_t exponent = end + 1;
        if (exponent < text.size() && (text[exponent] == '-' || text[exponent] == '+')) ++exponent;
        const std::size_t exponentEnd = skipDigits(text, exponent);
        if (exponentEnd > exponent) end = exponentEnd;
    }
    return end;
}

/// Of a text that numberLength has passed. Beyond the range of a double it is the largest one, or 0.
double valueOf(std::string_view number) {
    if (number.starts_with('+')) number.remove_prefix(1);
    double value = 0;
    const std::from_chars_result read = std::from_chars(number.data(), number.data() + number.size(), value);
    if (read.ec != std::errc::result_out_of_range) return value;
    // from_chars doesn't tell too large from too small; a stream does.
    std::istringstream stream{std::string(number)};
    stream.imbue(std::locale::classic());
    stream >> value;
    return value;
}

/// The text with the marks of a machine made plain: group marks, which stand between digits of the whole part
/// and have three digits behind them, are dropped, and the decimal mark is '.'. Nothing for marks elsewhere.
std::optional<std::string> withPlainMarks(std::string_view text, char decimalMark) {
    const char groupMark = decimalMark == ',' ? '.' : ',';
    std::string plain;
    bool isWholePart = true;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char sign = text[i];
        if (sign == decimalMark && isWholePart) {
            plain += '.';
            isWholePart = false;
        } else if (sign == groupMark) {
            const bool isBehindDigit = i > 0 && isDigit(text[i - 1]);
            if (!isWholePart || !isBehindDigit || skipDigits(text, i + 1) != i + 4) return std::nullopt;
        } else if (sign == '.' || sign == ',') {
            return std::nullopt;
        } else {
            plain += sign;
        }
    }
    return plain;
}

template <class Integer>
Integer toInteger(double value) {
    // To even, as long as nobody changes the rounding of the machine; nobody does.
    const double rounded = std::nearbyint(value);
    if (!(rounded >= std::numeric_limits<Integer>::min() && rounded <= std::numeric_limits<Integer>::max())) {
        throw std::range_error("the number " + std::to_string(value) + " is beyond " +
                               std::to_string(std::numeric_limits<Integer>::digits + 1) + " bits");
    }
    return static_cast<Integer>(rounded);
}

}  // namespace

double numberValue(std::string_view text) {
    const std::size_t start = text.find_first_not_of(" \t");
    if (start == std::string_view::npos) return 0;
    text.remove_prefix(start);
    const std::size_t length = numberLength(text);
    return length == 0 ? 0 : valueOf(text.substr(0, length));
}

std::optional<double> toDouble(std::string_view text, char decimalMark) {
    const std::optional<std::string> plain = withPlainMarks(trimmed(text), decimalMark);
    if (!plain || plain->empty() || numberLength(*plain) != plain->size()) return std::nullopt;
    const double value = valueOf(*plain);
    if (std::abs(value) == std::numeric_limits<double>::max()) return std::nullopt;
    return value;
}

std::int16_t toInteger16(double value) {
    return toInteger<std::int16_t>(value);
}

std::int32_t toInteger32(double value) {
    return toInteger<std::int32_t>(value);
}

bool readsCommaAsDecimalMark(const MachineFormat& format) {
    return toDouble("1.234", format.decimalMark) == 1234.0;
}

}  // namespace vantrace
