// The end of `frmCONmain`.
#include "core/config.h"
#include "core/error_label.h"
#include "core/labels.h"
#include "core/program_state.h"
#include "core/services.h"
#include "core/texts.h"
#include "dialogs/degrees.h"
#include "dialogs/main_settings.h"
#include "orbit/orbit_engine.h"

namespace vantrace {

namespace {

/// One more than what the message says.
constexpr double largestLatitudeDeg = 91;
constexpr double largestLongitudeDeg = 360;

/// A number's text as it was understood.
std::string understood(const std::string& text, const Services& services) {
    return valueText(typedValue(text, services), services);
}

std::string joined(const std::string& deg, const std::string& min, const std::string& sec,
                   const Services& services) {
    double value = 0;
    DMSToDecimal(typedValue(deg, services), typedValue(min, services), typedValue(sec, services), value);
    return std::string(trimmed(valueText(value, services)));
}

void savePlace(const MainSettingsForm& form, Services& services) {
    if (form.OPdecDeg) {
        SaveConfig(services, settings::latitude, form.Tlatitude);
        SaveConfig(services, settings::longitude, form.Tlongitude);
        return;
    }
    SaveConfig(services, settings::latitude, joined(form.Tlatdeg, form.Tlatmin, form.Tlatsec, services));
    SaveConfig(services, settings::longitude, joined(form.Tlondeg, form.Tlonmin, form.Tlonsec, services));
}

/// Whether three boxes tell what the one box does.
bool tellTheSame(const std::string& decimal, const std::string& deg, const std::string& min,
                 const std::string& sec, const Services& services) {
    double degrees = 0;
    double minutes = 0;
    double seconds = 0;
    DecimalToDMS(typedValue(decimal, services), degrees, minutes, seconds);
    return typedValue(deg, services) == degrees && typedValue(min, services) == minutes &&
           typedValue(sec, services) == seconds;
}

/// Whether the place that the program goes on with, that of the two boxes, is the one that is stored.
bool isStoredPlace(const MainSettingsForm& form, const Services& services) {
    return form.OPdecDeg ||
           (tellTheSame(form.Tlatitude, form.Tlatdeg, form.Tlatmin, form.Tlatsec, services) &&
            tellTheSame(form.Tlongitude, form.Tlondeg, form.Tlonmin, form.Tlonsec, services));
}

void tellObserver(const MainSettingsForm& form, ProgramState& state, Services& services, ErrorLabel& label) {
    state.ObserverLongitude = typedValue(form.Tlongitude, services);
    state.ObserverLatitude = typedValue(form.Tlatitude, services);
    state.ObserverHeight = typedValue(form.Theight, services);
    // The panel of `Main` would tell the new place by the old name otherwise. A place that was typed into the
    // six boxes comes later, and its name with it.
    if (isStoredPlace(form, services)) state.ObserverName = GetConfig(services, settings::locationName);
    if (!state.OrbitEngine) return;
    label.step([&] { state.OrbitEngine->EngineSetLatitude(state.ObserverLatitude); });
    label.step([&] { state.OrbitEngine->EngineSetLongitude(360 - state.ObserverLongitude); });
    label.step([&] { state.OrbitEngine->EngineSetHeight(state.ObserverHeight); });
}

}  // namespace

bool Form_QueryUnload(MainSettingsForm& form, Services& services) {
    bool mayGo = true;
    ErrorLabel label(services, labels::mainCONQueryUnload);
    label.step([&] {
        if (typedValue(form.Tlatitude, services) > largestLatitudeDeg) {
            mayGo = false;
            services.dialogs.message("Latitude should be less than 90");
        }
        if (typedValue(form.Tlongitude, services) > largestLongitudeDeg) {
            mayGo = false;
            services.dialogs.message("Longitude should be less than 360");
        }
        form.Theight = understood(form.Theight, services);
        Theight_Change(form, services);
        form.Tlatitude = understood(form.Tlatitude, services);
        form.Tlongitude = understood(form.Tlongitude, services);
    });
    return mayGo;
}

void Form_Unload(MainSettingsForm& form, ProgramState& state, Services& services) {
    ErrorLabel label(services, labels::mainCONUnload);
    const SettingsBatch batch(services.settings);
    label.step([&] { SaveConfig(services, settings::wxWavDir, form.LAWxWavDir); });
    label.step([&] { savePlace(form, services); });
    label.step([&] { tellObserver(form, state, services, label); });
    label.step([&] { SaveConfig(services, settings::voice, std::to_string(form.VoiceSelect.selected + 1)); });
}

}  // namespace vantrace
