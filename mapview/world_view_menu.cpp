#include "mapview/world_view_menu.h"

#include <algorithm>
#include <array>
#include <string>

#include "core/config.h"
#include "core/program_state.h"
#include "core/services.h"
#include "core/view_words.h"
#include "mapview/satellite_choice.h"
#include "mapview/tables/ground_track.h"
#include "mapview/tables/sun_moon.h"
#include "mapview/tracker_link.h"
#include "mapview/world_map.h"
#include "station/announcements.h"

namespace vantrace {

namespace {

/// Entries that change what the map shows, from the next frame on.
struct RegionEntry {
    std::string_view entry;
    std::string_view tag;
};

constexpr std::array regionEntries = {
    RegionEntry{"Mnwq", mainTag::regions[0]}, RegionEntry{"Mncq", mainTag::regions[1]},
    RegionEntry{"Mneq", mainTag::regions[2]}, RegionEntry{"Mswq", mainTag::regions[3]},
    RegionEntry{"Mscq", mainTag::regions[4]}, RegionEntry{"Mseq", mainTag::regions[5]},
};

void toggle(Services& services, MenuEntryState& entry, std::string_view setting) {
    entry.isChecked = !entry.isChecked;
    SaveConfig(services, setting, entry.isChecked ? "1" : "0");
}

void switchTo(WorldMap& world, std::string_view next, std::string_view window) {
    switchView(world.state, world.services, "WorldView", next, window);
}

}  // namespace

void runMapEntry(std::string_view entry, WorldMap& world) {
    WorldViewForm& form = world.form;
    Services& services = world.services;
    const auto region = std::ranges::find(regionEntries, entry, &RegionEntry::entry);
    if (region != regionEntries.end()) {
        world.state.MainTag = region->tag;
        return;
    }
    if (entry == "Mworld") world.state.MainTag = worldTag(services);
    if (entry == "Mnextsat") Mnextsat_Click(world);
    if (entry == "Mprevsat") Mprevsat_Click(world);
    if (entry == "Mmakeannouncement") AnnouncePositions(world.state, services, false);
    if (entry == "MrecordONoff") toggle(services, form.MrecordONoff, settings::recWxsat.key);
    if (entry == "MrecordONoffP") toggle(services, form.MrecordONoffP, settings::recPrimary.key);
    if (entry == "MspeechONoff") {
        toggle(services, form.MspeechONoff, settings::speech.key);
        world.state.SpeechEnabled = form.MspeechONoff.isChecked;
    }
    if (entry == "mnuHorizon") switchTo(world, nextView::horizon, "Horizon");
    if (entry == "mnuPassPred") switchTo(world, nextView::pass, "PassPrediction");
    if (entry == "mnu3D") switchTo(world, nextView::threeD, "");
    if (entry == "mnu2Dcontrols") services.windows.show("frmCON2D");
    if (entry == "mnuRadRot") {
        tellTracker(world.state, services);
        services.windows.show("frmTracker");
    }
}

void BUTtime_Click(WorldMap& world, int Index) {
    WorldViewForm& form = world.form;
    form.pressedBUTtime = Index;
    if (Index == 0) {
        form.TimeWarp = 0;
        CalcGroundTrack(form, world.map, world.state, world.services);
        CalcSunMoon(form, world.map, world.state, world.services);
        return;
    }
    const ClockParts now = world.services.clock.read().local;
    const auto field = [](int part) { return static_cast<std::int16_t>(part); };
    form.TimeWarp = form.SliderWarp;
    form.WarpDay = field(now.day);
    form.WarpHour = field(now.hour);
    form.WarpMinute = field(now.minute);
    form.WarpMonth = field(now.month);
    form.WarpSecond = field(now.second);
    form.WarpYear = field(now.year);
    form.Timer1.intervalMs = 1000;
}

void BUTimode_Click(WorldMap& world, int Index) {
    world.form.pressedBUTimode = Index;
    world.form.txtQuickETA.isVisible = Index != 0;
}

void SliderWarp_Change(WorldMap& world) {
    if (world.form.TimeWarp > 0) world.form.TimeWarp = world.form.SliderWarp;
}

}  // namespace vantrace
