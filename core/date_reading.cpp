#include "core/date_reading.h"

#include <array>
#include <charconv>
#include <optional>
#include <stdexcept>
#include <string>

#include "core/texts.h"

namespace vantrace {

namespace {

constexpr std::string_view blanks = " \t";
constexpr std::string_view digits = "0123456789";
constexpr std::string_view letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";

[[noreturn]] void refuse(std::string_view text, std::string_view wanted) {
    constexpr std::size_t longestTold = 40;
    throw std::invalid_argument("\"" + std::string(text.substr(0, longestTold)) + "\" is no " +
                                std::string(wanted));
}

/// Takes a text apart from its start.
class Pieces {
  public:
    explicit Pieces(std::string_view text) : m_rest(text) {}

    bool atEnd() const { return m_rest.empty(); }
    /// As many of these signs as there are.
    std::string_view take(std::string_view signs) {
        const std::string_view piece = m_rest.substr(0, m_rest.find_first_not_of(signs));
        m_rest.remove_prefix(piece.size());
        return piece;
    }
    bool takeSign(char sign) {
        if (!m_rest.starts_with(sign)) return false;
        m_rest.remove_prefix(1);
        return true;
    }
    /// A number of one or two digits.
    std::optional<int> takeNumber() {
        const std::string_view piece = take(digits);
        if (piece.empty() || piece.size() > 2) return std::nullopt;
        int number = 0;
        std::from_chars(piece.data(), piece.data() + piece.size(), number);
        return number;
    }

  private:
    std::string_view m_rest;
};

struct Month {
    std::string_view name;
    int days;
};

constexpr std::array<Month, 12> months{{{"JANUARY", 31},
                                        {"FEBRUARY", 29},
                                        {"MARCH", 31},
                                        {"APRIL", 30},
                                        {"MAY", 31},
                                        {"JUNE", 30},
                                        {"JULY", 31},
                                        {"AUGUST", 31},
                                        {"SEPTEMBER", 30},
                                        {"OCTOBER", 31},
                                        {"NOVEMBER", 30},
                                        {"DECEMBER", 31}}};

std::optional<int> monthOf(std::string_view name) {
    constexpr std::size_t fewestLetters = 3;
    if (name.size() < fewestLetters) return std::nullopt;
    for (std::size_t i = 0; i < months.size(); ++i) {
        if (months[i].name.starts_with(name)) return static_cast<int>(i) + 1;
    }
    return std::nullopt;
}

/// The hour of the day; nothing where the clock has no such hour.
std::optional<int> fullHour(int hour, std::string_view half) {
    if (half.empty()) return hour < 24 ? std::optional(hour) : std::nullopt;
    if ((half != "AM" && half != "PM") || hour < 1 || hour > 12) return std::nullopt;
    return hour % 12 + (half == "PM" ? 12 : 0);
}

}  // namespace

MonthDay readMonthDay(std::string_view text) {
    constexpr std::string_view between = " \t-/.,";
    const std::string upper = upperCased(text);
    Pieces pieces(upper);
    pieces.take(blanks);
    std::optional<int> month = monthOf(pieces.take(letters));
    if (month) pieces.take(between);
    const std::optional<int> day = pieces.takeNumber();
    if (!month) {
        pieces.take(between);
        month = monthOf(pieces.take(letters));
    }
    pieces.take(blanks);
    if (!month || !day || !pieces.atEnd()) refuse(text, "day of a month");
    if (*day < 1 || *day > months.at(static_cast<std::size_t>(*month) - 1).days) refuse(text, "date");
    return {*month, *day};
}

TimeOfDay readTimeOfDay(std::string_view text) {
    const std::string upper = upperCased(text);
    Pieces pieces(upper);
    pieces.take(blanks);
    const std::optional<int> hour = pieces.takeNumber();
    std::array<std::optional<int>, 2> parts{0, 0};
    int colons = 0;
    for (std::optional<int>& part : parts) {
        if (!pieces.takeSign(':')) break;
        part = pieces.takeNumber();
        ++colons;
    }
    pieces.take(blanks);
    const std::string_view half = pieces.take(letters);
    pieces.take(blanks);
    const auto [minute, second] = parts;
    const bool isWhole = hour && minute && second && pieces.atEnd() && (colons > 0 || !half.empty());
    const std::optional<int> ofDay = isWhole ? fullHour(*hour, half) : std::nullopt;
    if (!ofDay || *minute > 59 || *second > 59) refuse(text, "time of day");
    return {*ofDay, *minute, *second};
}

}  // namespace vantrace
