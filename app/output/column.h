// What a command puts out: rows of values under columns. One description serves table, CSV and JSON.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "orbit/instant.h"

namespace vantrace {

/// How the values of a column are written. CSV and JSON have full precision, tables what a reader wants.
enum class ValueForm {
    text,
    figure,       ///< tables round to the column's decimals
    count,        ///< a whole number
    flag,         ///< CSV 1 or 0, JSON true or false, tables yes or no
    moment,       ///< ISO 8601 with as many decimals as it needs, at most 6; tables to the millisecond
    tenths,       ///< ISO 8601 with one decimal; tables to the second
    tenthsOfDay,  ///< the same; tables only the time of day
    duration,     ///< seconds; tables as m:ss or h:mm:ss
};

struct Column {
    std::string_view name;
    std::string_view heading;  ///< in tables; a column without one is left out of them
    ValueForm form = ValueForm::text;
    int decimals = 0;
};

/// Nothing stands for a missing figure: empty in CSV, null in JSON, "-" in tables. A text may stand in any
/// column.
using Value = std::variant<std::monostate, std::string, double, std::int64_t, bool, Instant>;
using Row = std::vector<Value>;

std::string csvText(const Value& value, ValueForm form);
/// Printable.
std::string tableText(const Value& value, const Column& column);

}  // namespace vantrace
