#include "app/program/arguments.h"

#include <charconv>
#include <cmath>

#include "app/program/figure_text.h"
#include "core/texts.h"

namespace vantrace {

namespace {

[[noreturn]] void fail(std::string_view option, std::string_view text, std::string_view wanted) {
    throw UserError("--" + std::string(option) + ": " + inQuotes(text) + " is no " + std::string(wanted));
}

std::string rangeText(const NumberRange& range) {
    return shortestText(range.least) + " to " + shortestText(range.most);
}

}  // namespace

std::string inQuotes(std::string_view text) {
    return "\"" + std::string(text) + "\"";
}

std::optional<double> parseNumber(std::string_view text) {
    text = trimmed(text);
    if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
    double value = 0.0;
    const char* const end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, value);
    if (result.ec != std::errc() || result.ptr != end || !std::isfinite(value)) return std::nullopt;
    return value;
}

double numberOption(std::string_view option, std::string_view text, const NumberRange& range) {
    const std::optional<double> value = parseNumber(text);
    if (!value) fail(option, text, "number");
    if (*value < range.least || *value > range.most)
        fail(option, text, "number of the range " + rangeText(range));
    return *value;
}

int wholeNumberOption(std::string_view option, std::string_view text, const NumberRange& range) {
    const double value = numberOption(option, text, range);
    if (value != std::floor(value)) fail(option, text, "whole number");
    return static_cast<int>(value);
}

std::vector<double> numberListOption(std::string_view option, std::string_view text,
                                     const NumberRange& range) {
    std::vector<double> values;
    std::size_t start = 0;
    while (start <= text.size()) {
        const std::size_t end = std::min(text.find(',', start), text.size());
        values.push_back(numberOption(option, text.substr(start, end - start), range));
        start = end + 1;
    }
    return values;
}

Instant timeOption(std::string_view option, std::string_view text) {
    const std::optional<Instant> time = parseIsoText(trimmed(text));
    if (!time) fail(option, text, "time such as 2026-08-22T10:00:00Z, of the years 1900 to 9999");
    return *time;
}

}  // namespace vantrace
