#include "app/output/column.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "app/program/figure_text.h"
#include "app/program/printable.h"

namespace vantrace {

namespace {

std::string csvMoment(const Instant& time, ValueForm form) {
    return form == ValueForm::moment ? isoTextShort(time) : isoText(time, 1);
}

/// An ISO text without the zeros that end its decimals.
std::string withoutLastZeros(std::string text) {
    text.pop_back();
    text.erase(text.find_last_not_of('0') + 1);
    if (text.ends_with('.')) text.pop_back();
    return text + 'Z';
}

/// "2026-08-22 10:00:00", or only the time of day.
std::string tableMoment(const Instant& time, ValueForm form) {
    if (!isCalendarTime(time)) return isoText(time, 0);
    std::string text = form == ValueForm::moment ? withoutLastZeros(isoText(time, 3)) : isoText(time, 0);
    constexpr std::size_t timeColumn = 11;
    text.pop_back();
    text[timeColumn - 1] = ' ';
    return form == ValueForm::tenthsOfDay ? text.substr(timeColumn) : text;
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

std::string csvText(const Value& value, ValueForm form) {
    struct Writer {
        ValueForm form;
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
            return column.form == ValueForm::duration ? durationText(number)
                                                      : roundedText(number, column.decimals);
        }
        std::string operator()(std::int64_t number) const { return std::to_string(number); }
        std::string operator()(bool flag) const { return flag ? "yes" : "no"; }
        std::string operator()(const Instant& time) const { return tableMoment(time, column.form); }
    };
    return std::visit(Writer{column}, value);
}

}  // namespace vantrace
