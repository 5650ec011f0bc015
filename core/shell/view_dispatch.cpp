#include "core/shell/view_dispatch.h"

#include <array>
#include <string>
#include <utility>

#include "catalogue/element_files.h"
#include "core/config.h"
#include "core/error_label.h"
#include "core/labels.h"
#include "core/numbers.h"
#include "core/program_state.h"
#include "core/services.h"
#include "core/shell/status_panel.h"
#include "core/texts.h"
#include "core/view_words.h"
#include "orbit/orbit_engine.h"

namespace vantrace {

namespace {

constexpr std::array viewWindows = {"WorldView", "Horizon", "PassPrediction", "Record", "Tabular"};

void unloadViews(Services& services, ErrorLabel& label) {
    for (const char* const window : viewWindows) {
        label.step([&] { services.windows.unload(window); });
    }
}

/// Each switch that occurs acts, in this order; a region leaves `Main` on the screen.
void applySwitches(ProgramState& state, Services& services, ErrorLabel& label) {
    state.CommandLineDone = true;
    state.CommandLine = upperCased(state.CommandLine);
    const auto isGiven = [&](std::string_view name) {
        return state.CommandLine.find(name) != std::string::npos;
    };
    label.step([&] {
        if (isGiven("/WORLD")) openView(state, services, worldTag(services), "WorldView");
    });
    for (const std::string_view region : mainTag::regions) {
        label.step([&] {
            if (!isGiven("/" + std::string(region)) || !services.windows.isRegistered("WorldView")) return;
            state.MainTag = region;
            services.windows.show("WorldView");
        });
    }
}

/// The same as openView, but others may act between the word and the window.
void openNextView(ProgramState& state, Services& services, std::string_view tag, std::string_view window) {
    if (!services.windows.isRegistered(window)) return;
    state.MainTag = tag;
    services.events.yield();
    openView(state, services, state.MainTag, window);
}

void dispatchNextView(ProgramState& state, Services& services) {
    const std::string view = state.NextView;
    if (view == nextView::horizon) openNextView(state, services, mainTag::horizon, "Horizon");
    if (view == nextView::pass) openNextView(state, services, nextView::pass, "PassPrediction");
    if (view == nextView::world) openNextView(state, services, worldTag(services), "WorldView");
}

}  // namespace

void openView(ProgramState& state, Services& services, std::string_view tag, std::string_view window) {
    if (!services.windows.isRegistered(window)) return;
    state.MainTag = std::string(tag);
    services.windows.show(window);
    if (services.windows.isOnScreen(window)) services.windows.hide("Main");
}

void Form_Activate(MainForm& form, ProgramState& state, Services& services) {
    ErrorLabel label(services, labels::mainFormActivate);
    unloadViews(services, label);
    state.MainTag = mainTag::menu;
    label.step(
        [&] { state.CompatibilityMode = numberValue(GetConfig(services, settings::compatibility)) == 1; });
    label.step([&] {
        if (GetConfig(services, settings::skin) == "0") form.skin.remove();
    });
    if (state.GroupCount != 0) refreshStatusPanel(form, state, services, label);
    // The panel yields, and the user may have left.
    if (state.MainTag == mainTag::exit) return;
    label.step([&] { services.capture.closeAll(); });
    if (!state.CommandLineDone) applySwitches(state, services, label);
    label.step([&] { dispatchNextView(state, services); });
    state.NextView.clear();
    label.step([&] {
        // The engine has read the file before its names were made short. It is gone where the user has left.
        if (FixGPSKeps(state, services) && state.OrbitEngine) {
            state.OrbitEngine->EngineSetKepPath(state.AppPath);
        }
    });
    label.step([&] { services.windows.unload("frmSplash"); });
    label.step([&] {
        // A view that the command line asked for comes first.
        if (state.MainTag != mainTag::menu || !std::exchange(form.isPlaceUnknown, false)) return;
        services.windows.show("frmCONmain");
    });
}

}  // namespace vantrace
