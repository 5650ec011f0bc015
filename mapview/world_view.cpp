#include "mapview/world_view.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <stdexcept>
#include <string_view>

#include "catalogue/satellite_database.h"
#include "core/config.h"
#include "core/error_label.h"
#include "core/labels.h"
#include "core/numbers.h"
#include "core/program_state.h"
#include "core/services.h"
#include "core/view_words.h"
#include "mapview/paint/repaint_map_screen.h"
#include "mapview/satellite_choice.h"
#include "mapview/tables/ground_track.h"
#include "mapview/tables/gsatroutine.h"
#include "mapview/tables/sun_moon.h"
#include "mapview/tracker_link.h"
#include "mapview/world_map.h"
#include "orbit/upcoming_passes.h"

namespace vantrace {

namespace {

constexpr int paneWidth = 200;
constexpr int barWidth = 14;
/// What stands in the pane above the notes and the coming passes.
constexpr int paneLinesHeight = 320;

bool otherViewIsWanted(std::string_view tag) {
    constexpr std::array others = {mainTag::menu, mainTag::horizon, mainTag::eta, mainTag::passPrediction,
                                   mainTag::tabular};
    return std::ranges::find(others, tag) != others.end();
}

void stopClocks(WorldViewForm& form) {
    form.Timer1.isEnabled = false;
    form.Timer2.isEnabled = false;
}

bool isOn(Services& services, const Setting& setting) {
    return GetConfig(services, setting) == "1";
}

void readNotes(WorldMap& world) {
    world.form.IPtext = SatelliteDataFunc(world.state, world.services, world.state.PrimarySatName);
}

void readMenuStates(WorldMap& world, ErrorLabel& label) {
    WorldViewForm& form = world.form;
    label.step([&] {
        form.MspeechONoff = {true, true};
        if (GetConfig(world.services, settings::speechpack) == "0") form.MspeechONoff = {false, false};
    });
    label.step([&] {
        form.MrecordONoff.isChecked =
            isOn(world.services, settings::recWxsat) || isOn(world.services, settings::recPrimary);
    });
}

/// One entry for each favourite, behind the heading.
void listFavourites(WorldMap& world, ErrorLabel& label) {
    std::vector<std::string> entries{world.form.MFaveList.front()};
    for (int i = 1; i <= world.state.FavouriteCount; ++i) {
        label.step([&] { entries.push_back(world.state.Favourites[i].Name); });
    }
    if (entries == world.form.MFaveList) return;
    world.form.MFaveList = std::move(entries);
    ++world.form.favouriteLists;
}

int secondOfTheClock(const Services& services) {
    return services.clock.read().local.second;
}

void setFrameInterval(WorldMap& world) {
    constexpr double perSecond = 1000;
    constexpr double longestSeconds = 86400;
    const std::string text = GetConfig(world.services, settings::mapUpdate);
    const double seconds = numberValue(text);
    // A clock without an interval would stand still, and the map with it.
    if (!(seconds > 0 && seconds <= longestSeconds)) {
        throw std::range_error("\"" + text + "\" can't be the seconds between two frames");
    }
    world.form.Timer1.intervalMs = std::max(1, toInteger32(seconds * perSecond));
}

}  // namespace

void Form_Load(WorldMap& world) {
    ErrorLabel label(world.services, labels::mapFormLoad);
    WorldViewForm& form = world.form;
    ProgramState& state = world.state;
    label.step([&] { ApplySkin(world.services, form.skin); });
    label.step([&] { form.ShowInfoPaneNow = isTrue(world.services, settings::showInfoPane); });
    if (state.MainTag == mainTag::threeD || otherViewIsWanted(state.MainTag)) return stopClocks(form);
    readMenuStates(world, label);
    loadMapPicture(world.surfaces, state, world.services);
    readPlace(form.place, world.services, label);
    ++form.placements;
    label.step([&] {
        state.PrimarySatIndex = 1;
        state.PrimarySatName = state.Favourites[1].Name;
    });
    if (form.ShowInfoPaneNow) label.step([&] { readNotes(world); });
    form.Timer1.isEnabled = true;
    if (otherViewIsWanted(state.MainTag)) stopClocks(form);
}

void Form_Activate(WorldMap& world) {
    ErrorLabel label(world.services, labels::mapFormActivate);
    world.map.StatusLine.clear();
    label.step([&] { keepChoice(world); });
    label.step([&] {
        if (isTrue(world.services, settings::showGroundtrack)) {
            CalcGroundTrack(world.form, world.map, world.state, world.services);
        }
    });
    label.step([&] { CalcSunMoon(world.form, world.map, world.state, world.services); });
    listFavourites(world, label);
    if (world.services.windows.isOnScreen("WorldView")) world.form.Timer1 = {1000, true};
}

void Form_Resize(WorldMap& world) {
    ErrorLabel label(world.services, labels::mapFormResize);
    WorldViewForm& form = world.form;
    if (world.state.MainTag == mainTag::menu) return stopClocks(form);
    if (form.place.isMinimised) return;
    form.layout.Final = {
        form.ShowInfoPaneNow ? std::abs(form.innerWidth - paneWidth) : form.innerWidth - barWidth,
        form.innerHeight};
    form.layout.notesHeight = std::abs(form.innerHeight - paneLinesHeight);
    label.step([&] { RedrawinfoPane(world); });
}

void RedrawinfoPane(WorldMap& world) {
    ErrorLabel label(world.services, labels::mapRedrawinfoPane);
    WorldViewForm& form = world.form;
    if (form.ShowInfoPaneNow) {
        form.layout.expandLeft = form.innerWidth - paneWidth;
        form.layout.Final.width = std::abs(form.innerWidth - paneWidth);
        label.step([&] { readNotes(world); });
    } else {
        form.layout.expandLeft = form.innerWidth - barWidth;
        form.layout.Final.width = form.innerWidth - barWidth;
    }
    form.layout.expandHeight = form.innerHeight;
    form.layout.paneLeft = form.layout.expandLeft + barWidth;
}

void BUTexpand_Click(WorldMap& world) {
    world.form.ShowInfoPaneNow = !world.form.ShowInfoPaneNow;
    RedrawinfoPane(world);
    paintFrame(world);
}

void Timer1_Timer(WorldMap& world) {
    ErrorLabel label(world.services, labels::mapTimer1);
    WorldViewForm& form = world.form;
    ProgramState& state = world.state;
    Services& services = world.services;
    if (state.MainTag == mainTag::menu || state.MainTag == mainTag::threeD) {
        form.Timer1.isEnabled = false;
        label.step([&] { services.windows.unload("WorldView"); });
        return;
    }
    label.step([&] { Gsatroutine(form, world.map, state, services); });
    label.step([&] { paintFrame(world); });
    label.step([&] {
        if (services.windows.isOnScreen("frmTracker")) tellTracker(state, services);
    });
    label.step([&] {
        if (form.txtQuickETA.isVisible && form.txtQuickETA.isEmpty()) {
            UpdateQuickETA(form.txtQuickETA, form.MspeechONoff.isChecked, state, services);
        }
    });
    label.step([&] { setFrameInterval(world); });
    if (form.TimeWarp <= 0) return;
    label.step([&] {
        if (secondOfTheClock(services) % 3 == 0) CalcGroundTrack(form, world.map, state, services);
    });
    label.step([&] {
        if (secondOfTheClock(services) % 5 == 0) CalcSunMoon(form, world.map, state, services);
    });
}

void Timer2_Timer(WorldMap& world) {
    constexpr std::int16_t trackTick = 2;
    constexpr std::int16_t sunTick = 6;
    ErrorLabel label(world.services, labels::mapviewTimer2);
    WorldViewForm& form = world.form;
    if (otherViewIsWanted(world.state.MainTag)) return stopClocks(form);
    // The entry's being enabled counts here, where the other clock looks at its check.
    label.step(
        [&] { UpdateQuickETA(form.txtQuickETA, form.MspeechONoff.isEnabled, world.state, world.services); });
    label.step([&] {
        if (form.Timer2Ticks == trackTick && isOn(world.services, settings::showGroundtrack)) {
            CalcGroundTrack(form, world.map, world.state, world.services);
        }
    });
    label.step([&] {
        if (form.Timer2Ticks == sunTick) CalcSunMoon(form, world.map, world.state, world.services);
    });
    if (++form.Timer2Ticks > sunTick) form.Timer2Ticks = 0;
}

void Form_Unload(WorldMap& world) {
    ErrorLabel label(world.services, labels::mapFormUnload);
    constexpr int lastTrackPoint = 600;
    constexpr int lastFootprintPoint = 360;
    stopClocks(world.form);
    label.step([&] {
        for (int i = 0; i <= lastTrackPoint; ++i) {
            world.map.GroundTrackPoints[i].Latitude = 0;
            world.map.GroundTrackPoints[i].Longitude = 0;
        }
    });
    label.step([&] {
        for (int i = 0; i <= lastFootprintPoint; ++i) world.map.FootprintPoints[i] = {};
    });
    label.step([&] { world.services.windows.show("Main"); });
}

void paintFrame(WorldMap& world) {
    Surface& Final = world.surfaces.Final;
    const WorldViewForm& form = world.form;
    const int width = std::max(form.layout.Final.width, 0);
    const int height = std::max(form.layout.Final.height, 0);
    if (Final.width() != width || Final.height() != height ||
        Final.devicePixelsPerPixel() != form.devicePixelsPerPixel) {
        Final.resize(width, height, form.devicePixelsPerPixel);
    }
    if (form.spritesFor != form.devicePixelsPerPixel) {
        loadSprites(world.surfaces, world.services, form.devicePixelsPerPixel);
        world.form.spritesFor = form.devicePixelsPerPixel;
    }
    // Another frame may be painted where this one yields; then the two lie on each other.
    constexpr int mostTimes = 3;
    unsigned before = 0;
    int times = 0;
    do {
        before = form.frames;
        RepaintMapScreen(world.surfaces, form, world.map, world.state, world.services);
    } while (form.frames != before && ++times < mostTimes);
    ++world.form.frames;
}

}  // namespace vantrace
