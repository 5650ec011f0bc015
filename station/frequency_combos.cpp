#include "station/frequency_combos.h"

#include <algorithm>
#include <string>

#include "catalogue/satellite_database.h"
#include "core/error_label.h"
#include "core/labels.h"
#include "core/numbers.h"
#include "core/services.h"
#include "platform/text_file.h"
#include "station/tracker.h"

namespace vantrace {

namespace {

constexpr int linesLookedAt = 20;

/// Whether the line, without its first sign, holds one of the frequencies already.
bool holdsAny(std::string_view line, const FrequencyCombo& combo) {
    const std::string_view rest = line.empty() ? line : line.substr(1);
    return std::ranges::any_of(combo.items, [rest](const std::string& item) {
        return !item.empty() && rest.find(item) != std::string_view::npos;
    });
}

void addFrequency(FrequencyCombo& combo, std::string_view line, std::string_view key, char decimalMark) {
    if (!line.starts_with(key)) return;
    // Behind the key stands a colon.
    const std::string_view value = line.substr(std::min(key.size() + 1, line.size()));
    combo.items.push_back(formatNumber(numberValue(value), "0.000", decimalMark));
}

void chooseFirst(FrequencyCombo& combo) {
    combo.text = combo.items.empty() ? "0" : combo.items.front();
}

}  // namespace

void UpdateCombos(TrackerForm& form, ProgramState& state, Services& services, std::string_view name) {
    ErrorLabel label(services, labels::trackerUpdateCombos);
    form.COMuplink = {};
    form.COMdownlink = {};
    std::string block;
    label.step([&] { block = SatelliteDataFunc(state, services, name); });
    const char mark = services.format.decimalMark;
    LineReader lines(block);
    for (int i = 1; i <= linesLookedAt && !lines.atEnd(); ++i) {
        const std::string_view line = lines.next();
        label.step([&] {
            if (!holdsAny(line, form.COMuplink)) addFrequency(form.COMuplink, line, "Uplink", mark);
        });
        label.step([&] {
            if (holdsAny(line, form.COMdownlink)) return;
            addFrequency(form.COMdownlink, line, "Downlink", mark);
            addFrequency(form.COMdownlink, line, "Beacon", mark);
        });
    }
    chooseFirst(form.COMuplink);
    chooseFirst(form.COMdownlink);
}

}  // namespace vantrace
