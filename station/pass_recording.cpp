#include "station/pass_recording.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "core/config.h"
#include "core/error_label.h"
#include "core/numbers.h"
#include "core/program_state.h"
#include "core/services.h"

namespace vantrace {

namespace {

bool isOn(Services& services, ErrorLabel& label, const Setting& setting) {
    bool on = false;
    label.step([&] { on = numberValue(GetConfig(services, setting)) == 1.0; });
    return on;
}

bool isWeatherSatellite(std::string_view name) {
    constexpr std::array<std::string_view, 4> words{"NOAA", "METEOR", "RESURS", "FENGYUN"};
    return std::ranges::any_of(
        words, [&](std::string_view word) { return name.find(word) != std::string_view::npos; });
}

RecordWindow* recordWindow(Services& services) {
    return dynamic_cast<RecordWindow*>(services.windows.refer("Record"));
}

void start(ProgramState& state, Services& services, ErrorLabel& label, std::string_view name) {
    state.Recording = true;
    label.step([&] { services.windows.show("Record"); });
    label.step([&] {
        if (RecordWindow* const window = recordWindow(services)) window->StartRecording(name);
    });
}

}  // namespace

void testRecording(ProgramState& state, Services& services, ErrorLabel& label, std::string_view name) {
    const bool recordsWeather = isOn(services, label, settings::recWxsat);
    const bool recordsPrimary = isOn(services, label, settings::recPrimary);
    if (!recordsWeather && !recordsPrimary) return;
    double threshold = 0.0;
    label.step([&] { threshold = numberValue(GetConfig(services, settings::wxEl)); });
    const double elevation = std::floor(state.SatElevation);

    if (threshold <= elevation && !state.Recording) {
        if (recordsWeather && isWeatherSatellite(name)) start(state, services, label, name);
        // The first favourite is meant, not the selected one.
        if (recordsPrimary && name.find(state.Favourites[1].Name) != std::string_view::npos) {
            start(state, services, label, name);
        }
    }
    if (threshold > elevation && name == state.RecordingSat && state.Recording) {
        label.step([&] {
            if (RecordWindow* const window = recordWindow(services)) window->StopRecording();
        });
    }
}

}  // namespace vantrace
