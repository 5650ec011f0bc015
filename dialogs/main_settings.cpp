#include "dialogs/main_settings.h"

#include <filesystem>

#include "core/config.h"
#include "core/core_services.h"
#include "core/error_label.h"
#include "core/labels.h"
#include "core/numbers.h"
#include "core/program_state.h"
#include "core/services.h"
#include "dialogs/degrees.h"

namespace vantrace {

namespace {

bool isVisible(Services& services) {
    return services.windows.isOnScreen("frmCONmain");
}

void showSpeechSpeed(MainSettingsForm& form) {
    form.LAspeechspeed = std::to_string(form.SLspeechspeed) + " WPM";
    form.SLspeechspeedTip = form.LAspeechspeed;
}

void showMinEl(MainSettingsForm& form) {
    form.LAminEl = std::to_string(form.SLminEl) + " Degrees";
}

void breakUp(const std::string& text, std::string& deg, std::string& min, std::string& sec,
             const Services& services) {
    double degrees = 0;
    double minutes = 0;
    double seconds = 0;
    DecimalToDMS(typedValue(text, services), degrees, minutes, seconds);
    deg = valueText(degrees, services);
    min = valueText(minutes, services);
    sec = valueText(seconds, services);
}

void loadPlace(MainSettingsForm& form, Services& services) {
    form.Tlocation = GetConfig(services, settings::locationName);
    form.Tlatitude = GetConfig(services, settings::latitude);
    form.Tlongitude = GetConfig(services, settings::longitude);
    breakUp(form.Tlatitude, form.Tlatdeg, form.Tlatmin, form.Tlatsec, services);
    breakUp(form.Tlongitude, form.Tlondeg, form.Tlonmin, form.Tlonsec, services);
    form.OPnonDecDeg = GetConfig(services, settings::dms) == "1";
    form.OPdecDeg = !form.OPnonDecDeg;
    form.Theight = GetConfig(services, settings::hasl);
}

/// Selects none where none was chosen (0) or the machine has none; a voice that is gone is an error.
void loadVoices(MainSettingsForm& form, Services& services) {
    form.VoiceSelect.list = services.speech.voices();
    const int number = toInteger16(numberValue(GetConfig(services, settings::voice)));
    if (number <= 0 || form.VoiceSelect.list.empty()) return;
    form.VoiceSelect.select(static_cast<std::size_t>(number - 1));
}

void loadSliders(MainSettingsForm& form, Services& services) {
    form.SLspeechspeed = sliderSetting(services, settings::speechSpeed, speechSpeedRange);
    showSpeechSpeed(form);
    form.SLminEl = sliderSetting(services, settings::wxEl, minElRange);
    showMinEl(form);
}

}  // namespace

void Form_Load(MainSettingsForm& form, ProgramState& state, Services& services) {
    ErrorLabel label(services, labels::mainCONFormLoad);
    label.step([&] { ApplySkin(services, form.skin); });
    label.step([&] { loadPlace(form, services); });
    form.CHspeechpack = isTicked(services, settings::speechpack);
    if (form.CHspeechpack) label.step([&] { loadVoices(form, services); });
    label.step([&] { loadSliders(form, services); });
    form.CHrecwxsat = isTicked(services, settings::recWxsat);
    form.CHrecPrimary = isTicked(services, settings::recPrimary);
    form.LAWxWavDir = GetConfig(state, services, settings::wxWavDir);
    form.Chchangeres = isTicked(services, settings::changeRes);
    form.CHcomp = isTicked(services, settings::compatibility);
    // The tick that comes here is a click like any other, but for the window that isn't on the screen yet.
    if (form.CHcomp) label.step([&] { CHcomp_Click(form, state, services); });
    form.CHskin = isTicked(services, settings::skin);
}

void Tlocation_Change(MainSettingsForm& form, Services& services) {
    SaveConfig(services, settings::locationName, form.Tlocation);
}

void Theight_Change(MainSettingsForm& form, Services& services) {
    const std::string height = typedValue(form.Theight, services) == 0.0 ? "0" : form.Theight;
    SaveConfig(services, settings::hasl, height);
}

void OPdecDeg_Click(MainSettingsForm& form, Services& services) {
    form.OPdecDeg = true;
    form.OPnonDecDeg = false;
    SaveConfig(services, settings::dms, "0");
}

void OPnonDecDeg_Click(MainSettingsForm& form, Services& services) {
    form.OPdecDeg = false;
    form.OPnonDecDeg = true;
    SaveConfig(services, settings::dms, "1");
}

void CHrecwxsat_Click(MainSettingsForm& form, Services& services) {
    saveTick(services, settings::recWxsat, form.CHrecwxsat);
}

void CHrecPrimary_Click(MainSettingsForm& form, Services& services) {
    saveTick(services, settings::recPrimary, form.CHrecPrimary);
}

void SLminEl_Change(MainSettingsForm& form, Services& services) {
    SaveConfig(services, settings::wxEl, std::to_string(form.SLminEl));
    showMinEl(form);
}

void SLspeechspeed_Change(MainSettingsForm& form, Services& services) {
    SaveConfig(services, settings::speechSpeed, std::to_string(form.SLspeechspeed));
    showSpeechSpeed(form);
}

void Chchangeres_Click(MainSettingsForm& form, Services& services) {
    saveTick(services, settings::changeRes, form.Chchangeres);
    if (!form.Chchangeres || !isVisible(services)) return;
    services.dialogs.message(
        "The next time Vantrace starts it will change to 800x600 mode, and when you exit, it will change "
        "back to 640x480. If you run 800x600 or higher, turn this option OFF");
}

void CHcomp_Click(MainSettingsForm& form, ProgramState& state, Services& services) {
    saveTick(services, settings::compatibility, form.CHcomp);
    state.CompatibilityMode = false;
    if (!form.CHcomp || !isVisible(services)) return;
    state.CompatibilityMode = true;
    services.dialogs.message(
        "Compatibility mode ON....on the 2D map views, the 'alphablending' feature to create the sun shine "
        "wont been seen, all the earth will look the same brightness, this mode is used if you're having "
        "problems bringing up any of the 2D map views");
}

void CHspeechpack_Click(MainSettingsForm& form, Services& services) {
    ErrorLabel label(services, {});
    // The voices come with the next opening: their list was meant for a box whose value is true, -1, and that
    // of a ticked one is 1.
    label.quietStep([&] { saveTick(services, settings::speechpack, form.CHspeechpack); });
}

void CHskin_Click(MainSettingsForm& form, Services& services) {
    saveTick(services, settings::skin, form.CHskin);
    services.windows.hide("frmCONmain");
    if (form.CHskin) {
        ApplySkin(services, form.skin);
    } else {
        services.windows.hide("Main");
        form.skin.remove();
        services.windows.show("Main");
    }
    services.events.yield();
    services.windows.show("frmCONmain");
}

void VoiceSelect_Click(MainSettingsForm& form, Services& services) {
    if (!isVisible(services)) return;
    services.speech.setVoice(form.VoiceSelect.selected + 1);
    Speak(services, "Changed Voice to " + form.VoiceSelect.text);
}

void BUTwxWavDir_Click(MainSettingsForm& form, Services& services) {
    ErrorLabel label(services, {});
    label.quietStep([&] {
        FileRequest request;
        request.title = "Path to save Recorded WAVs";
        request.start = form.LAWxWavDir;
        const auto chosen = services.dialogs.folder(request);
        if (!chosen) return;
        if (!std::filesystem::is_directory(*chosen)) {
            services.dialogs.message("Invalid Folder name, try again");
            return;
        }
        // With nothing behind it a folder ends in one separator, also the root.
        form.LAWxWavDir = (*chosen / "").string();
    });
}

void BUTeditTZ_Click(Services& services) {
    ErrorLabel label(services, {});
    label.quietStep([&] { services.desktop.startTimeSettings(); });
}

}  // namespace vantrace
