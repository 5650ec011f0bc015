#include "station/announcements.h"

#include <cmath>
#include <string>

#include "core/core_services.h"
#include "core/date_time.h"
#include "core/error_label.h"
#include "core/labels.h"
#include "core/numbers.h"
#include "core/program_state.h"
#include "core/services.h"
#include "core/spoken_name.h"
#include "orbit/next_pass.h"

namespace vantrace {

namespace {

/// The time to the next rise, 0 to 1439: whole days don't count, so that a pass in 24 hours and 10 minutes
/// comes in 10.
int minutesToNextPass(ProgramState& state, Services& services, const std::string& name) {
    // The present stays where the engine's answer can't be read, and that is never a coming pass.
    double next = NowLocal(services.clock);
    NextPassRAW(state, services, name, next);
    const DateParts distance = dateParts(next - NowLocal(services.clock));
    return 60 * distance.hour + distance.minute;
}

void announcePass(Services& services, const std::string& name, int minutes) {
    constexpr int earliestMinutes = 14;
    if (minutes >= 2 && minutes <= earliestMinutes) {
        Speak(services, SpokenName(name) + " will be in range in " + std::to_string(minutes) + " minutes.");
    } else if (minutes == 1) {
        Speak(services, SpokenName(name) + " will be in range in 1 minute.");
    }
}

}  // namespace

std::string wholeDegrees(double degrees) {
    return numberText(std::floor(degrees));
}

void AnnouncePositions(const ProgramState& state, Services& services, bool onlyInRange) {
    const char* const azimuth = onlyInRange ? " Azimuth " : ", Azimuth ";
    for (int i = 1; i <= state.FavouriteCount; ++i) {
        const FavouriteRecord& favourite = state.Favourites[i];
        if (onlyInRange && !(favourite.Elevation >= 0)) continue;
        Speak(services, SpokenName(favourite.Name) + azimuth + wholeDegrees(favourite.Azimuth) +
                            " Elevation " + wholeDegrees(favourite.Elevation) + ". ");
    }
}

void Makeannouncment(ProgramState& state, Services& services, int muting) {
    ErrorLabel label(services, labels::mapMakeannouncment);
    // The favourites and their count may be others after each yield.
    for (int i = 1; i <= state.FavouriteCount; ++i) {
        label.step([&] {
            const std::string name = state.Favourites[i].Name;
            const int minutes = minutesToNextPass(state, services, name);
            if (muting == 0) announcePass(services, name, minutes);
        });
        label.step([&] { services.events.yield(); });
    }
}

}  // namespace vantrace
