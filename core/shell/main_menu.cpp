#include "core/shell/main_menu.h"

#include <algorithm>
#include <array>
#include <exception>
#include <string>

#include "core/config.h"
#include "core/core_services.h"
#include "core/hosts.h"
#include "core/program_state.h"
#include "core/services.h"
#include "core/shell/start_up.h"
#include "core/shell/view_dispatch.h"
#include "core/view_words.h"

namespace vantrace {

namespace {

/// Entries that show a window beside `Main`.
struct DialogEntry {
    std::string_view entry;
    std::string_view window;
};

constexpr std::array dialogEntries = {
    DialogEntry{"mnuCONmain", "frmCONmain"},
    DialogEntry{"mnuCONupdate", "frmCONUpdates"},
    DialogEntry{"mnuCONgroups", "frmCONGroups"},
    DialogEntry{"mnuCONlocations", "frmCONlocations"},
    DialogEntry{"mnu2Dsettings", "frmCON2D"},
    DialogEntry{"Mflares", "IridiumFlares"},
    DialogEntry{"Mabout", "About"},
    DialogEntry{"Msgp4", "About"},
};

/// Entries that show a view in the place of `Main`.
struct ViewEntry {
    std::string_view entry;
    std::string_view tag;
    std::string_view window;
};

constexpr std::array viewEntries = {
    ViewEntry{"Mnorthwest", mainTag::regions[0], "WorldView"},
    ViewEntry{"Mnorthcentral", mainTag::regions[1], "WorldView"},
    ViewEntry{"Mnortheast", mainTag::regions[2], "WorldView"},
    ViewEntry{"Msouthwest", mainTag::regions[3], "WorldView"},
    ViewEntry{"Msouthcentral", mainTag::regions[4], "WorldView"},
    ViewEntry{"Msoutheast", mainTag::regions[5], "WorldView"},
    ViewEntry{"Mpanoramic", mainTag::horizon, "Horizon"},
    ViewEntry{"Mtabular", mainTag::tabular, "Tabular"},
    ViewEntry{"Mpass", mainTag::passPrediction, "PassPrediction"},
};

void openPlaylist(const ProgramState& state, Services& services, std::string_view query) {
    services.desktop.openAddress(readHosts(state).videoPlaylists + std::string(query));
}

}  // namespace

void runMenuEntry(std::string_view entry, ProgramState& state, Services& services) {
    const auto dialog = std::ranges::find(dialogEntries, entry, &DialogEntry::entry);
    if (dialog != dialogEntries.end()) return services.windows.show(dialog->window);
    const auto view = std::ranges::find(viewEntries, entry, &ViewEntry::entry);
    if (view != viewEntries.end()) return openView(state, services, view->tag, view->window);

    if (entry == "Mworldview") openView(state, services, worldTag(services), "WorldView");
    // Behind this word no view stands; so `Main` stays on the screen.
    if (entry == "mnu3Dview") state.MainTag = mainTag::threeD;
    if (entry == "mnuNASAhi") openPlaylist(state, services, "makeplaylist.dll?id=139072&segment=");
    if (entry == "mnuNASAlo") openPlaylist(state, services, "makeplaylist.dll?id=138294&segment=");
    if (entry == "MhelpOLD") services.desktop.openAddress(readHosts(state).helpPage);
    if (entry == "Website") services.desktop.openAddress(readHosts(state).homePage);
    if (entry == "Mhelp") services.desktop.openTextFile(state.AppPath + "history.txt");
    if (entry == "MaboutSP") MaboutSP_Click(state, services);
    if (entry == "Mreset") Mreset_Click(services);
    if (entry == "Mexit") BUTexit_Click(state, services);
}

void Mreset_Click(Services& services) {
    if (!services.dialogs.question("Are you Sure you want to reset all vantrace settings back to how they "
                                   "were when you first Installed ?",
                                   "Reset Settings")) {
        return;
    }
    // Favourites, places or a job in an open dialog are no settings.
    if (!listsAreSaved(services)) return;
    services.settings.removeAll();
    services.dialogs.message("All Settings Reset, Vantrace will now restart");
    try {
        services.process.startAgain();
    } catch (const std::exception& failure) {
        services.dialogs.message(failure.what());
    }
    services.process.end(0);
}

void MaboutSP_Click(const ProgramState& state, Services& services) {
    // Only "1" will do here, though anything but "0" lets the program speak.
    if (GetConfig(services, settings::speechpack) != "1") {
        services.dialogs.message(
            "There is no speech pack installed. If you want to hear speech in Vantrace, go to the Vantrace "
            "homepage at " +
            readHosts(state).homePage + " for details");
        return;
    }
    const std::size_t voices = services.speech.voices().size();
    Speak(services, "The Speech Engine used is made by " + services.speech.maker() + " and has " +
                        std::to_string(voices) + " voices.");
    services.speech.showAbout("Speechpack used by Vantrace");
}

void BUTexit_Click(ProgramState& state, Services& services) {
    if (!mayEnd(services)) return;
    services.capture.closeAll();
    services.windows.unload("frmTracker");
    state.MainTag = mainTag::exit;
    services.windows.unload("Main");
}

}  // namespace vantrace
