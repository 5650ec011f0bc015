#include "orbit/pass_record.h"

#include <charconv>
#include <cstddef>
#include <optional>
#include <stdexcept>

#include "core/date_time.h"
#include "core/numbers.h"
#include "core/texts.h"

namespace vantrace {

namespace {

/// The digits of a record from a column that counts from 1.
int digitsAt(const std::string& record, std::size_t column, std::size_t count) {
    int value = -1;
    if (column - 1 + count <= record.size()) {
        const char* const first = record.data() + column - 1;
        const char* const end = first + count;
        const auto [stop, error] = std::from_chars(first, end, value);
        if (error != std::errc() || stop != end) {
            value = -1;
        }
    }
    if (value < 0) {
        throw std::invalid_argument("no rise time in the pass record \"" + record + "\"");
    }
    return value;
}

}  // namespace

double passRiseUtc(const std::string& record) {
    return packDateTime({digitsAt(record, 1, 4), digitsAt(record, 5, 2), digitsAt(record, 7, 2),
                         digitsAt(record, 9, 2), digitsAt(record, 11, 2), digitsAt(record, 13, 2)});
}

double passNumber(const std::string& record, int word) {
    const std::string text = GetDelimitedWord(record, word, " ");
    const std::optional<double> value = toDouble(text);
    if (!value) {
        throw std::invalid_argument("\"" + text + "\" is no number in the pass record \"" + record + "\"");
    }
    return *value;
}

}  // namespace vantrace
