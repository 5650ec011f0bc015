#include "mapview/tables/gsatroutine.h"

#include <string>

#include "core/error_label.h"
#include "core/labels.h"
#include "core/numbers.h"
#include "core/program_state.h"
#include "core/services.h"
#include "core/view_words.h"
#include "mapview/map_state.h"
#include "mapview/tables/footprint.h"
#include "mapview/tables/info_pane.h"
#include "mapview/tables/map_time.h"
#include "mapview/tables/status_line.h"
#include "mapview/world_view_form.h"
#include "station/pass_recording.h"

namespace vantrace {

namespace {

void add(std::int16_t& field, int amount) {
    field = toInteger16(field + amount);
}

/// Each carry happens once, and the day is not carried into the month.
void advanceWarp(WorldViewForm& form, ErrorLabel& label) {
    if (form.TimeWarp <= 0) {
        return;
    }
    label.step([&] { add(form.WarpMinute, form.TimeWarp); });
    if (form.WarpSecond >= 60) {
        label.step([&] { add(form.WarpSecond, -60); });
        label.step([&] { add(form.WarpMinute, 1); });
    }
    if (form.WarpMinute >= 60) {
        label.step([&] { add(form.WarpMinute, -60); });
        label.step([&] { add(form.WarpHour, 1); });
    }
    if (form.WarpHour > 23) {
        label.step([&] { add(form.WarpHour, -24); });
        label.step([&] { add(form.WarpDay, 1); });
    }
}

void storePosition(FavouriteRecord& favourite, const ProgramState& state) {
    favourite.Longitude = state.SatLongitude;
    favourite.Latitude = state.SatLatitude;
    favourite.Elevation = state.SatElevation;
    favourite.Azimuth = state.SatAzimuth;
}

}  // namespace

void Gsatroutine(WorldViewForm& form, MapState& map, ProgramState& state, Services& services) {
    ErrorLabel label(services, labels::mapviewGsatroutine);
    advanceWarp(form, label);

    int inRange = 0;
    std::string name;
    // The favourites, their count, the selected one and the time may be others after each yield.
    for (int i = 1; i <= state.FavouriteCount; ++i) {
        if (state.MainTag == mainTag::menu) {
            return;
        }
        label.step([&] { name = state.Favourites[i].Name; });
        label.step([&] { satcalcAt(state, services, name, mapTime(form, services), true); });
        const bool isPrimary = i == state.PrimarySatIndex;
        // Only the satellite that the pane shows is recorded.
        if (form.TimeWarp <= 0 && isPrimary) {
            testRecording(state, services, label, name);
        }
        if (state.MainTag == mainTag::menu) {
            return;
        }
        label.step([&] { storePosition(state.Favourites[i], state); });
        if (isPrimary) {
            CalcFootprint(map, services, state.SatHeight, state.SatLatitude, state.SatLongitude);
            writeSatelliteLines(form, state, services, label, name);
        }
        if (state.SatElevation > 0) {
            ++inRange;
        }
        label.step([&] { services.events.yield(); });
    }
    map.StatusLine = composeStatusLine(form, state, services, label, inRange);
}

}  // namespace vantrace
