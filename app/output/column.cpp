#include "app/output/column.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "app/output/printable.h"

namespace vantrace {

namespace {

bool isNonZero(char character) {
    return character != '0' && character != '.' && character != '-';
}

std::string csvMoment(const Instant& time, Form form) {
    return form == Form::moment ? isoTextShort(time) : isoText(time, 1);
}

/// An ISO text without the zeros that end its decimals.
std::string withoutLastZeros(std::string text) {
    text.pop_back();
    text.erase(text.find_last_not_of('0') + 1);
    if (text.ends_with('.')) text.pop_back();
    return text + 'Z';
}

/// "2026-08-22 10:00:00", or only the time of day.
std::string tableMoment(const Instant& time, Form form) {
    if (!isCalendarTime(time)) return isoText(time, 0);
    std::string text = form == Form::moment ? withoutLastZeros(isoText(time, 3)) : isoText(time, 0);
    constexpr std::size_t timeColumn = 11;
    text.pop_back();
    text[timeColumn - 1] = ' ';
    return form == Form::tenthsOfDay ? text.substr(timeColumn) : text;
}

std::string twoDigits(std::int64_t value) {
    return (value < 10 ? "0" : "") + std::to_string(value);
}

std::string durationText(double seconds) {
    constexpr std::int64_t minute = 60;
    constexpr std::int64_t hour = 60 * minute;
    const std::int64_t total = std::llround(seconds);
    const std::string rest = ":" + twoDigits(total % minute);
    if (total < hour) return std::to_string(total / minute) + rest;
    return std::to_string(total / hour) + ":" + twoDigits(total % hour / minute) + rest;
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

std::string csvText(const Value& value, Form form) {
    struct Writer {
        Form form;
        std::string operator()(std::monostate) const { return {}; }
        std::string operator()(const std::string& text) const { return text; }
        std::string operator()(double number) const {
            return std::isfinite(number) ? shortestText(number) : std::string();
        }
        std::string operator()(std::int64_t number) const { return std::to_string(number); }
        std::string operator()(bool flag) const { return flag ? "1" : "0"; }
        std::string operator()(const Instant& time) const { return csvMoment(time, form); }
    };
    return std::visit(Writer{form}, value);
}

std::string tableText(const Value& value, const Column& column) {
    struct Writer {
        const Column& column;
        std::string operator()(std::monostate) const { return "-"; }
        std::string operator()(const std::string& text) const { return printable(text); }
        std::string operator()(double number) const {
            if (!std::isfinite(number)) return "-";
            return column.form == Form::duration ? durationText(number)
                                                 : roundedText(number, column.decimals);
        }
        std::string operator()(std::int64_t number) const { return std::to_string(number); }
        std::string operator()(bool flag) const { return flag ? "yes" : "no"; }
        std::string operator()(const Instant& time) const { return tableMoment(time, column.form); }
    };
    return std::visit(Writer{column}, value);
}

}  // namespace vantrace
