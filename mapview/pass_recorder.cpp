#include "mapview/pass_recorder.h"

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

void start(PassRecorder& recorder, Services& services, ErrorLabel& label, std::string_view name) {
    recorder.Recording = true;
    label.step([&] { services.windows.show("Record"); });
    label.step([&] {
        if (recorder.StartRecording) {
            recorder.StartRecording(name);
        }
    });
}

}  // namespace

void testRecording(PassRecorder& recorder, const ProgramState& state, Services& services, ErrorLabel& label,
                   std::string_view name) {
    const bool recordsWeather = isOn(services, label, settings::recWxsat);
    const bool recordsPrimary = isOn(services, label, settings::recPrimary);
    if (!recordsWeather && !recordsPrimary) {
        return;
    }
    double threshold = 0.0;
    label.step([&] { threshold = numberValue(GetConfig(services, settings::wxEl)); });
    const double elevation = std::floor(state.SatElevation);

    if (threshold <= elevation && !recorder.Recording) {
        if (recordsWeather && isWeatherSatellite(name)) {
            start(recorder, services, label, name);
        }
        // The first favourite is meant, not the selected one.
        if (recordsPrimary && name.find(state.Favourites[1].Name) != std::string_view::npos) {
            start(recorder, services, label, name);
        }
    }
    if (threshold > elevation && name == recorder.RecordingSat && recorder.Recording) {
        label.step([&] {
            if (recorder.StopRecording) {
                recorder.StopRecording();
            }
        });
    }
}

}  // namespace vantrace
