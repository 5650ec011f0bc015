// The path of the selected satellite across the sky.
#include <cmath>
#include <limits>

#include "core/error_label.h"
#include "core/labels.h"
#include "core/program_state.h"
#include "core/services.h"
#include "horizon/horizon_form.h"
#include "horizon/horizon_surfaces.h"
#include "horizon/paint_screen.h"
#include "horizon/sky_position.h"
#include "horizon/sky_projection.h"

namespace vantrace {

namespace {

/// Each carry happens only where it comes out even: from an odd second on the seconds run past 60.
void addTwoSeconds(ClockParts& time) {
    time.second += 2;
    if (time.second == 60) {
        time.second = 0;
        ++time.minute;
    }
    if (time.minute == 60) {
        time.minute = 0;
        ++time.hour;
    }
    if (time.hour == 24) {
        time.hour = 0;
        ++time.day;
    }
}

/// A satellite that the engine can't place has no track; the result block keeps the elevation that it had.
bool isPlaced(ProgramState& state, Services& services, ErrorLabel& label, std::string_view name,
              const ClockParts& time) {
    const double before = state.SatElevation;
    state.SatElevation = std::numeric_limits<double>::quiet_NaN();
    label.step([&] { placeAt(state, services, name, time); });
    if (!std::isnan(state.SatElevation)) return true;
    state.SatElevation = before;
    return false;
}

}  // namespace

void DrawSkyTrack(HorizonSurfaces& surfaces, const HorizonForm& form, ProgramState& state, Services& services,
                  std::string_view name) {
    constexpr int steps = 800;
    constexpr int aheadSeconds = 10;
    ErrorLabel label(services, labels::horizonDrawSkyTrack);
    ClockParts time = services.clock.read().local;
    time.second += aheadSeconds;
    Surface& Final = surfaces.Final;
    for (int i = 0; i <= steps; ++i) {
        const ClockParts today = services.clock.read().local;
        time.year = today.year;
        time.month = today.month;
        if (!isPlaced(state, services, label, name, time)) return;
        if (i == 0 && state.SatElevation < 0) state.PrimarySatIndex = 0;
        if (state.SatElevation < 0) return;
        Final.setPenColour(colours::green);
        Final.plot(AzimuthToX(form.CenteredNorth, Final.width(), state.SatAzimuth),
                   ElevationToY(Final.height(), state.SatElevation));
        addTwoSeconds(time);
    }
}

}  // namespace vantrace
