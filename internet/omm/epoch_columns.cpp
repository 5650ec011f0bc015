#include "internet/omm/epoch_columns.h"

#include <algorithm>
#include <chrono>
#include <cstdint>

#include "core/texts.h"
#include "internet/omm/element_columns.h"

namespace vantrace {

namespace {

constexpr int firstYear = 1957;
constexpr int lastYear = 2056;

/// Takes texts of a known shape apart from the front.
class Scanner {
  public:
    explicit Scanner(std::string_view text) : m_rest(text) {}

    /// So many digits as a number.
    std::optional<int> digits(std::size_t count) {
        if (m_rest.size() < count) return std::nullopt;
        int value = 0;
        for (const char c : m_rest.substr(0, count)) {
            if (c < '0' || c > '9') return std::nullopt;
            value = value * 10 + (c - '0');
        }
        m_rest.remove_prefix(count);
        return value;
    }
    bool sign(std::string_view oneOf) {
        if (m_rest.empty() || oneOf.find(m_rest.front()) == std::string_view::npos) return false;
        m_rest.remove_prefix(1);
        return true;
    }
    bool isAtEnd() const { return m_rest.empty(); }
    std::size_t digitsAhead() const {
        return std::min(m_rest.find_first_not_of("0123456789"), m_rest.size());
    }

  private:
    std::string_view m_rest;
};

std::chrono::sys_days newYear(int year) {
    using namespace std::chrono;
    return sys_days(std::chrono::year(year) / January / 1);
}

std::optional<std::chrono::sys_days> readDay(Scanner& scan) {
    using namespace std::chrono;
    const auto yearNumber = scan.digits(4);
    if (!yearNumber || *yearNumber < firstYear || *yearNumber > lastYear || !scan.sign("-")) {
        return std::nullopt;
    }
    if (scan.digitsAhead() == 3) {
        const sys_days day = newYear(*yearNumber) + days(*scan.digits(3) - 1);
        const bool isOfYear = day >= newYear(*yearNumber) && day < newYear(*yearNumber + 1);
        return isOfYear ? std::optional(day) : std::nullopt;
    }
    const auto monthNumber = scan.digits(2);
    if (!monthNumber || !scan.sign("-")) return std::nullopt;
    const auto dayNumber = scan.digits(2);
    if (!dayNumber) return std::nullopt;
    const year_month_day date(year(*yearNumber), month(static_cast<unsigned>(*monthNumber)),
                              day(static_cast<unsigned>(*dayNumber)));
    return date.ok() ? std::optional<sys_days>(date) : std::nullopt;
}

/// The fraction of a second behind its point, in ns; what is beyond them can't turn a rounding.
std::int64_t readFractionNs(Scanner& scan) {
    constexpr std::size_t digitsOfNs = 9;
    std::int64_t value = 0;
    for (std::size_t i = 0; i < digitsOfNs; ++i) value = value * 10 + scan.digits(1).value_or(0);
    while (scan.digits(1)) {
    }
    return value;
}

std::optional<std::int64_t> readTimeOfDayNs(Scanner& scan) {
    const auto hour = scan.digits(2);
    if (!hour || *hour > 23 || !scan.sign(":")) return std::nullopt;
    const auto minute = scan.digits(2);
    if (!minute || *minute > 59 || !scan.sign(":")) return std::nullopt;
    const auto second = scan.digits(2);
    // A leap second is taken into the next minute: these elements know of none.
    if (!second || *second > 60) return std::nullopt;
    const std::int64_t fractionNs = scan.sign(".") ? readFractionNs(scan) : 0;
    scan.sign("Z");
    if (!scan.isAtEnd()) return std::nullopt;
    return ((*hour * 60 + *minute) * 60 + *second) * std::int64_t{1000000000} + fractionNs;
}

}  // namespace

std::optional<std::string> epochColumns(std::string_view text) {
    constexpr std::int64_t unitsOfDay = 100000000;
    constexpr std::int64_t nsOfUnit = 864000;
    Scanner scan(trimmed(text));
    auto day = readDay(scan);
    if (!day || !scan.sign("T ")) return std::nullopt;
    const auto timeNs = readTimeOfDayNs(scan);
    if (!timeNs) return std::nullopt;

    const std::int64_t units = (*timeNs + nsOfUnit / 2) / nsOfUnit;
    *day += std::chrono::days(units / unitsOfDay);
    const int year = static_cast<int>(std::chrono::year_month_day(*day).year());
    if (year > lastYear) return std::nullopt;
    const auto dayOfYear = (*day - newYear(year)).count() + 1;
    return withZeros(year % 100, 2) + withZeros(dayOfYear, 3) + "." + withZeros(units % unitsOfDay, 8);
}

}  // namespace vantrace
