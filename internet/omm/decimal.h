// Decimal numbers as their digits, so that bringing them into columns rounds once.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vantrace {

/// 0.DIGITS times a power of ten.
struct Decimal {
    bool isNegative = false;
    /// Without zeros in front; empty for zero.
    std::string digits;
    int exponent = 0;
};

/// The number that the whole text is, blanks at both ends aside: digits with at most one point, a sign in
/// front and a power of ten behind (".9508E-4", "-1.6e-7"). Nothing for anything else, also for a text of
/// more than 100 characters and a power beyond 9999.
std::optional<Decimal> readDecimal(std::string_view text);

enum class Rounding { nearest, towardsZero };

/// The number times ten to that power, as a whole number; halves go away from zero. Nothing where it has more
/// than 18 digits.
std::optional<std::int64_t> scaledNumber(const Decimal& number, int power,
                                         Rounding rounding = Rounding::nearest);

}  // namespace vantrace
