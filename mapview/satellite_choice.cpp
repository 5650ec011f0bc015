#include "mapview/satellite_choice.h"

#include <cmath>
#include <string>

#include "catalogue/satellite_database.h"
#include "core/config.h"
#include "core/error_label.h"
#include "core/labels.h"
#include "core/nearest_favourite.h"
#include "core/numbers.h"
#include "core/program_state.h"
#include "core/services.h"
#include "mapview/tables/ground_track.h"
#include "mapview/world_map.h"

namespace vantrace {

namespace {

/// The caption of the entry at the index is the name.
void choose(WorldMap& world, ErrorLabel& label, std::int16_t index) {
    ProgramState& state = world.state;
    WorldViewForm& form = world.form;
    state.PrimarySatIndex = index;
    label.step([&] { state.PrimarySatName = form.MFaveList.at(static_cast<std::size_t>(index)); });
    label.step([&] {
        if (GetConfig(world.services, settings::showGroundtrack) == "1") {
            CalcGroundTrack(form, world.map, state, world.services);
        }
    });
    label.step([&] {
        if (form.ShowInfoPaneNow) {
            form.IPtext = SatelliteDataFunc(state, world.services, state.PrimarySatName);
        }
    });
}

/// To the neighbour of the list, round its ends.
void step(WorldMap& world, int by) {
    ErrorLabel label(world.services, labels::mapMenuFavelistClick);
    const int count = world.state.FavouriteCount;
    if (count == 0) return;
    int index = world.state.PrimarySatIndex + by;
    if (index > count) index = 1;
    if (index < 1) index = count;
    choose(world, label, static_cast<std::int16_t>(index));
}

}  // namespace

void MFaveList_Click(WorldMap& world, std::int16_t Index) {
    ErrorLabel label(world.services, labels::mapMenuFavelistClick);
    if (Index != 0) choose(world, label, Index);
}

void Mnextsat_Click(WorldMap& world) {
    step(world, 1);
}

void Mprevsat_Click(WorldMap& world) {
    step(world, -1);
}

void keepChoice(WorldMap& world) {
    ProgramState& state = world.state;
    if (state.PrimarySatIndex < 1 || state.FavouriteCount < 1) return;
    const auto isChosen = [&](std::int16_t index) {
        return index <= state.FavouriteCount && state.Favourites[index].Name == state.PrimarySatName;
    };
    if (isChosen(state.PrimarySatIndex)) return;
    std::int16_t index = 1;
    while (index <= state.FavouriteCount && !isChosen(index)) ++index;
    const bool isGone = index > state.FavouriteCount;
    state.PrimarySatIndex = isGone ? std::int16_t{1} : index;
    if (!isGone) return;
    state.PrimarySatName = state.Favourites[1].Name;
    if (world.form.ShowInfoPaneNow) {
        world.form.IPtext = SatelliteDataFunc(state, world.services, state.PrimarySatName);
    }
}

void Final_MouseDown(WorldMap& world, int Button, double X, double Y) {
    constexpr int rightButton = 2;
    if (Button == rightButton) {
        ++world.form.popUps;
        return;
    }
    ErrorLabel label(world.services, labels::mapFinalMousedown);
    ProgramState& state = world.state;
    const SurfaceSize& Final = world.form.layout.Final;
    const std::int16_t choice = nearestFavourite(state, label, [&](const FavouriteRecord& favourite) {
        return std::abs(X - LongitudeToMapX(Final, state.MainTag, favourite.Longitude)) +
               std::abs(Y - LatitudeToMapY(Final, state.MainTag, favourite.Latitude));
    });
    state.PrimarySatIndex = choice;
    MFaveList_Click(world, choice);
}

}  // namespace vantrace
