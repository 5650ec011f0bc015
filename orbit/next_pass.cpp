#include "orbit/next_pass.h"

#include <cstdint>

#include "core/date_time.h"
#include "core/error_label.h"
#include "core/labels.h"
#include "core/numbers.h"
#include "core/program_state.h"
#include "core/services.h"
#include "core/texts.h"
#include "orbit/engine_access.h"
#include "orbit/orbit_engine.h"
#include "orbit/pass_record.h"

namespace vantrace {

namespace {

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
            record.riseUtc = passRiseUtc(record.text);
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
    label.step([&] { length = lengthText(toInteger32(passNumber(record->text, passLengthWord))); });
    label.step([&] {
        greatestElevation = formatNumber(toInteger32(passNumber(record->text, passElevationWord)), "00");
    });
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
