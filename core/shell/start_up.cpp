#include "core/shell/start_up.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <initializer_list>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "catalogue/data_files.h"
#include "catalogue/element_files.h"
#include "catalogue/favourites.h"
#include "catalogue/groups.h"
#include "catalogue/locations.h"
#include "core/config.h"
#include "core/core_services.h"
#include "core/date_time.h"
#include "core/error_label.h"
#include "core/files.h"
#include "core/labels.h"
#include "core/numbers.h"
#include "core/program_state.h"
#include "core/services.h"
#include "core/texts.h"
#include "core/version.h"
#include "core/view_words.h"
#include "orbit/engine_access.h"
#include "orbit/orbit_engine.h"

namespace vantrace {

namespace {

/// Without these the program can't go on.
constexpr std::array<std::string_view, 5> neededFiles = {favouritesFile, groupsFile, locationsFile,
                                                         satelliteFile, "pass.dat"};

constexpr int missingFileStatus = 1;

/// A list shorter than this many bytes is told to the user.
struct ShortFile {
    std::string_view name;
    std::uintmax_t leastBytes;
    const char* warning;
};

constexpr std::array shortFiles = {
    ShortFile{favouritesFile, 5,
              "There may be a problem with your FAVES.DAT file, it may be corrupt, or simply empty. If its "
              "empty ignore this."},
    ShortFile{groupsFile, 10, "There may be a problem with your GROUPS.DAT file"},
};

int wholeNumberSetting(Services& services, const Setting& setting) {
    return toInteger16(numberValue(GetConfig(services, setting)));
}

bool speechIsOn(Services& services) {
    return GetConfig(services, settings::speechpack) != "0";
}

/// The stored text as a number of this machine.
double machineNumber(const std::string& text, const Services& services) {
    const std::optional<double> number = toDouble(text, services.format.decimalMark);
    if (!number) throw std::invalid_argument("\"" + text + "\" is no number");
    return *number;
}

/// False when one was missing, and the process is at its end.
bool checkDataFiles(const ProgramState& state, Services& services, ErrorLabel& label) {
    for (const std::string_view name : neededFiles) {
        if (FileExists(dataFile(state, name))) continue;
        services.dialogs.message(std::string(name) + " is missing from the vantrace folder. Can't Continue");
        services.process.end(missingFileStatus);
        return false;
    }
    for (const ShortFile& file : shortFiles) {
        label.step([&] {
            if (std::filesystem::file_size(dataFile(state, file.name)) < file.leastBytes) {
                services.dialogs.message(file.warning);
            }
        });
    }
    return true;
}

void welcome(const MainForm& form, Services& services) {
    Speak(services, "Welcome to Van Trace. version " + std::to_string(versionMajor) + " point " +
                        std::to_string(versionMinor) + " " + std::to_string(versionRevision));
    if (!trimmed(form.Dstatus).empty()) Speak(services, form.Dstatus);
}

void loadObserver(ProgramState& state, Services& services, ErrorLabel& label) {
    label.step([&] { state.ObserverName = GetConfig(services, settings::locationName); });
    const bool hasComma = readsCommaAsDecimalMark(services.format);
    const auto read = [&](double& field, const Setting& setting) {
        field = machineNumber(GetConfig(services, setting), services);
    };
    label.step([&] { read(state.ObserverHeight, settings::hasl); });
    const auto load = [&](double& field, const Setting& setting) {
        // With a decimal comma the two coordinates are read again below, and this is no failure.
        if (hasComma) {
            label.quietStep([&] { read(field, setting); });
        } else {
            label.step([&] { read(field, setting); });
        }
    };
    load(state.ObserverLatitude, settings::latitude);
    load(state.ObserverLongitude, settings::longitude);
    if (!hasComma) return;
    const auto loadWithComma = [&](double& field, const Setting& setting) {
        label.step(
            [&] { field = machineNumber(replacedAll(GetConfig(services, setting), ".", ","), services); });
    };
    loadWithComma(state.ObserverLatitude, settings::latitude);
    loadWithComma(state.ObserverLongitude, settings::longitude);
}

/// What is skipped stays in the file only until the places are saved again: the log keeps a trace of it.
void loadPlaces(ProgramState& state, Services& services) {
    constexpr std::size_t shownCharacters = 80;
    const std::vector<std::string> skipped = LoadLocations(state, services.format);
    if (skipped.empty()) return;
    LogError(services,
             std::string(locationsFile) + ": " + std::to_string(skipped.size()) +
                 " line(s) skipped, the first one: " + skipped.front().substr(0, shownCharacters),
             labels::mainLoadAllSettings);
}

/// Unloads them one after the other; false where one of them stays.
bool areUnloaded(std::initializer_list<const char*> editors, Services& services) {
    return std::ranges::all_of(editors, [&](const char* editor) {
        services.windows.unload(editor);
        return !services.windows.isLoaded(editor);
    });
}

}  // namespace

void Form_Initialize(ProgramState& state, Services& services) {
    constexpr double largestFont = 100;
    state.CommandLineDone = false;
    if (numberValue(GetConfig(services, settings::threeDFontSize)) > largestFont) {
        SaveConfig(services, settings::threeDFontSize, settings::threeDFontSize.defaultValue);
    }
}

void Form_Load(MainForm& form, ProgramState& state, Services& services) {
    ErrorLabel label(services, labels::mainFormLoad);
    label.phase("");
    label.step([&] {
        if (GetConfig(services, settings::changeRes) == "1") SetDisplayMode(form, services, 800, 600);
    });
    label.phase("Skin");
    label.step([&] { ApplySkin(services, form.skin); });
    label.phase("Kormoslib");
    label.step([&] { state.OrbitEngine = std::make_shared<OrbitEngine>(&services.clock); });
    // Blending is the program's own here; no machine lacks it.
    state.CompatibilityMode = false;
    label.phase("Speechpack");
    label.step([&] {
        if (speechIsOn(services)) {
            services.speech.setSpeed(wholeNumberSetting(services, settings::speechSpeed));
        }
    });
    label.phase("keppath");
    // Favourites bear the short names; under the long ones of a fresh file they would not be found.
    label.step([&] { FixGPSKeps(state, services); });
    label.step([&] { engineOf(state).EngineSetKepPath(state.AppPath); });

    if (!checkDataFiles(state, services, label)) return;
    // Before the first read, which stores the default.
    form.isPlaceUnknown = !services.settings.get(settings::locationName.key);
    LoadAllSettings(state, services);
    form.Caption = "Vantrace v" + std::string(shortVersion);
    form.Label2 = "v" + std::string(shortVersion);
    label.step([&] {
        form.Dstatus = std::to_string(engineOf(state).EngineSatelliteCount()) +
                       " Satellites in the Keplerian Files (" + std::to_string(state.GroupCount) + " groups)";
    });
    welcome(form, services);
}

void LoadAllSettings(ProgramState& state, Services& services) {
    ErrorLabel label(services, labels::mainLoadAllSettings);
    label.step([&] { LoadFavourites(state); });
    label.step([&] { LoadGroups(state); });
    label.step([&] { loadPlaces(state, services); });
    loadObserver(state, services, label);
    label.step([&] {
        if (!speechIsOn(services)) return;
        const int voice = wholeNumberSetting(services, settings::voice);
        services.speech.setVoice(voice == 0 ? 1 : voice);
    });
    label.step([&] { engineOf(state).EngineSetLatitude(state.ObserverLatitude); });
    label.step([&] { engineOf(state).EngineSetLongitude(360 - state.ObserverLongitude); });
    label.step([&] { engineOf(state).EngineSetHeight(state.ObserverHeight); });
}

void Timer1_Timer(MainForm& form, Services& services) {
    ErrorLabel label(services, labels::mainTimer1);
    label.step([&] {
        const ClockReading now = services.clock.read();
        form.LABdatetime = "UTC: " + TimeText(now.utc.hour, now.utc.minute, now.utc.second) +
                           " - Local: " + TimeText(now.local.hour, now.local.minute, now.local.second);
    });
}

bool listsAreSaved(Services& services) {
    return areUnloaded({"PassWizard", "frmCONGroups", "frmCONlocations"}, services);
}

bool mayEnd(Services& services) {
    return listsAreSaved(services) && areUnloaded({"frmCONmain", "frmCONUpdates"}, services);
}

void Form_QueryUnload(MainForm& form, Services& services) {
    ErrorLabel label(services, labels::mainFormLoad);
    label.step([&] {
        // Not the mode found at the start, but this one.
        if (GetConfig(services, settings::changeRes) == "1") SetDisplayMode(form, services, 640, 480);
    });
}

void Form_Unload(MainForm& /*form*/, ProgramState& state, Services& services) {
    // Also when the window's frame was used, so that what is still running leaves.
    state.MainTag = mainTag::exit;
    // A recording is saved as long as its window is there.
    services.windows.unload("Record");
    state.OrbitEngine.reset();
    services.windows.close();
}

void SetDisplayMode(MainForm& form, Services& services, int width, int height) {
    const std::vector<DisplayModeValues> modes = services.displayMode.modes();
    if (modes.empty()) {
        if (!std::exchange(form.isMissingModeSwitchTold, true)) {
            LogError(services, "this platform has no switch of the display mode", labels::mainFormLoad);
        }
        return;
    }
    DisplayModeValues values = modes.back();
    values.width = width;
    values.height = height;
    services.displayMode.change(values);
}

}  // namespace vantrace
