#include "app/ui/all_windows.h"

#include <memory>

#include "core/shell/ui/information_windows.h"
#include "core/shell/ui/main_window.h"
#include "core/shell/ui/tabular_window.h"
#include "dialogs/ui/groups_window.h"
#include "dialogs/ui/locations_window.h"
#include "dialogs/ui/main_settings_window.h"
#include "dialogs/ui/map_settings_window.h"
#include "flares/ui/iridium_flares_window.h"
#include "horizon/ui/horizon_window.h"
#include "internet/ui/updates_window.h"
#include "mapview/ui/world_view_window.h"
#include "passes/ui/pass_prediction_window.h"
#include "passes/ui/pass_wizard_window.h"
#include "station/ui/record_window.h"
#include "station/ui/tracker_window.h"

namespace vantrace {

namespace {

template <class Window>
void add(const char* name, WindowHost& host, ProgramState& state, Services& services) {
    host.registry().registerWindow(
        name, [&host, &state, &services] { return std::make_unique<Window>(host, state, services); });
}

}  // namespace

void registerAllWindows(WindowHost& host, MapState& map, ProgramState& state, Services& services) {
    host.registry().registerWindow(
        "frmSplash", [&host, &services] { return std::make_unique<frmSplash>(host, services); });
    host.registry().registerWindow("About",
                                   [&host, &services] { return std::make_unique<About>(host, services); });
    host.registry().registerWindow("WorldView", [&host, &map, &state, &services] {
        return std::make_unique<WorldView>(host, map, state, services);
    });
    add<Main>("Main", host, state, services);
    add<Tabular>("Tabular", host, state, services);
    add<Horizon>("Horizon", host, state, services);
    add<PassPrediction>("PassPrediction", host, state, services);
    add<PassWizard>("PassWizard", host, state, services);
    add<IridiumFlares>("IridiumFlares", host, state, services);
    add<Record>("Record", host, state, services);
    add<frmTracker>("frmTracker", host, state, services);
    add<frmCONUpdates>("frmCONUpdates", host, state, services);
    add<frmCONmain>("frmCONmain", host, state, services);
    add<frmCON2D>("frmCON2D", host, state, services);
    add<frmCONGroups>("frmCONGroups", host, state, services);
    add<frmCONlocations>("frmCONlocations", host, state, services);
}

}  // namespace vantrace
