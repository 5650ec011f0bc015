#include "mapview/tables/ground_track.h"

#include <limits>
#include <stdexcept>

#include "core/config.h"
#include "core/error_label.h"
#include "core/labels.h"
#include "core/numbers.h"
#include "core/program_state.h"
#include "core/services.h"
#include "mapview/map_state.h"
#include "mapview/tables/map_time.h"
#include "mapview/world_view_form.h"

namespace vantrace {

namespace {

constexpr int stepSeconds = 30;
constexpr int pointsPerMinute = 2;

/// The number of the last point.
double lastPoint(Services& services) {
    const double last = pointsPerMinute * numberValue(GetConfig(services, settings::groundTrackLen));
    if (last > std::numeric_limits<std::int16_t>::max()) {
        throw std::range_error("a ground track of " + numberText(last) + " points is beyond 16 bits");
    }
    return last;
}

/// The day is not carried into the month: packing a date takes day 32.
void advance(ClockParts& time) {
    time.second += stepSeconds;
    if (time.second > 59) {
        time.second -= 60;
        ++time.minute;
    }
    if (time.minute > 59) {
        time.minute -= 60;
        ++time.hour;
    }
    if (time.hour > 23) {
        time.hour -= 24;
        ++time.day;
    }
}

void storePoint(GroundTrackPoint& point, const ProgramState& state) {
    point.Latitude = state.SatLatitude;
    point.Longitude = state.SatLongitude;
    point.Colour = state.SatElevation <= 0 ? trackBelowHorizonColour : trackAboveHorizonColour;
}

}  // namespace

void CalcGroundTrack(const WorldViewForm& form, MapState& map, ProgramState& state, Services& services) {
    ErrorLabel label(services, labels::mapviewCalcGroundTrack);
    ClockParts time = mapTime(form, services);
    double last = 0.0;
    label.step([&] { last = lastPoint(services); });
    for (int i = 0; i <= last; ++i) {
        label.step(
            [&] { satcalcAt(state, services, state.Favourites[state.PrimarySatIndex].Name, time, false); });
        label.step([&] { storePoint(map.GroundTrackPoints[i], state); });
        advance(time);
    }
}

}  // namespace vantrace
