#include "orbit/next_pass.h"

#include <charconv>
#include <cstddef>
#include <cstdint>
#include <stdexcept>

#include "core/date_time.h"
#include "core/error_label.h"
#include "core/labels.h"
#include "core/numbers.h"
#include "core/program_state.h"
#include "core/services.h"
#include "core/texts.h"
#include "orbit/engine_access.h"
#include "orbit/orbit_engine.h"

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

double riseOf(const std::string& record) {
    return packDateTime({digitsAt(record, 1, 4), digitsAt(record, 5, 2), digitsAt(record, 7, 2),
                         digitsAt(record, 9, 2), digitsAt(record, 11, 2), digitsAt(record, 13, 2)});
}

/// A word of a record, which is a whole number.
std::int32_t wholeNumberAt(const std::string& record, int word) {
    const std::string text = GetDelimitedWord(record, word, " ");
    const std::optional<double> value = toDouble(text);
    if (!value) {
        throw std::invalid_argument("\"" + text + "\" is no number in the pass record \"" + record + "\"");
    }
    return toInteger32(*value);
}

std::string lengthText(std::int32_t seconds) {
    return formatNumber(seconds / 60, "00") + "m : " + formatNumber(seconds % 60, "00") + "s";
}

/// The engine's list of the days from now, without quotes; blank when there is none.
std::string passList(ProgramState& state, ErrorLabel& label, std::string_view name, double nowUtc,
                     int spanDays) {
    std::string list;
    label.step([&] { list = engineOf(state).EnginePassList(name, nowUtc, 1, spanDays, 0, 0); });
    return std::string(trimmed(replacedAll(list, "\"", "")));
}

}  // namespace

std::optional<PassRecord> nextPassRecord(std::string_view list, double nowUtc, ErrorLabel& label) {
    constexpr int mostRecords = 20;
    std::optional<PassRecord> found;
    for (int k = 1; k <= mostRecords; ++k) {
        label.step([&] {
            PassRecord record{GetDelimitedWord(list, k, ","), 0.0};
            record.riseUtc = riseOf(record.text);
            found = std::move(record);
        });
        if (found && found->riseUtc > nowUtc) {
            break;
        }
    }
    return found;
}

void NextPass(ProgramState& state, Services& services, std::string_view name, std::string& rise,
              std::string& length, std::string& greatestElevation) {
    ErrorLabel label(services, labels::globalNextPass);
    const double nowUtc = NowUTC(services.clock);
    const double nowLocal = NowLocal(services.clock);
    const std::string list = passList(state, label, name, nowUtc, 3);
    if (list.empty()) {
        label.step([&] { rise = services.format.dateTimeText(dateParts(nowLocal)); });
        return;
    }
    const std::optional<PassRecord> record = nextPassRecord(list, nowUtc, label);
    if (!record) {
        return;
    }
    label.step([&] {
        const DateParts parts = dateParts(ToLocal(services.clock, record->riseUtc));
        rise = TimeText(parts.hour, parts.minute, parts.second);
    });
    label.step([&] { length = lengthText(wholeNumberAt(record->text, 5)); });
    label.step([&] { greatestElevation = formatNumber(wholeNumberAt(record->text, 4), "00"); });
}

void NextPassRAW(ProgramState& state, Services& services, std::string_view name, double& rise) {
    ErrorLabel label(services, labels::globalNextPassRAW);
    const double nowUtc = NowUTC(services.clock);
    const std::string list = passList(state, label, name, nowUtc, 4);
    if (list.empty()) {
        label.step([&] { rise = packDateTime({9999, 1, 1, 23, 59, 59}); });
        return;
    }
    const std::optional<PassRecord> record = nextPassRecord(list, nowUtc, label);
    if (record) {
        label.step([&] { rise = ToLocal(services.clock, record->riseUtc); });
    }
}

}  // namespace vantrace
