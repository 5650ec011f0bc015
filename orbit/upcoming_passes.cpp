#include "orbit/upcoming_passes.h"

#include <cmath>
#include <memory>
#include <utility>

#include "core/core_services.h"
#include "core/date_time.h"
#include "core/error_label.h"
#include "core/labels.h"
#include "core/numbers.h"
#include "core/program_state.h"
#include "core/rich_text.h"
#include "core/services.h"
#include "core/spoken_name.h"
#include "core/table.h"
#include "core/texts.h"
#include "orbit/engine_access.h"
#include "orbit/orbit_engine.h"

namespace vantrace {

namespace {

constexpr std::size_t nameWidth = 14;

struct ETARow {
    /// As wide as its column; empty in a row that nobody has filled.
    std::string Name;
    /// Local day numbers; the rise is 0 when the satellite is in range already.
    double AOS = 0;
    double LOS = 0;
    /// False where the engine knows of no rise, or of no set, to come.
    bool rises = true;
    bool sets = true;
};

using ETARows = Table<ETARow, 500>;

constexpr Colour headingColour = 0x8080FF;
constexpr Colour waitingColour = 0xFFFF00;
constexpr Colour soonColour = 0x0000FF;
constexpr Colour inRangeColour = 0x00FF00;
constexpr Colour riseColour = 0x80FFFF;
constexpr Colour setColour = 0xFFFFFF;

struct Run {
    RichText& target;
    bool speaks;
    ProgramState& state;
    Services& services;
    ErrorLabel label;
    ETARows rows;

    bool userHasLeft() const { return state.MainTag == "menu" || state.MainTag == "exit"; }
    /// False when the user has left meanwhile.
    bool yielded(int cycles) {
        label.step([&] { YieldCycles(services.events, cycles); });
        return !userHasLeft();
    }
    double now() const { return NowLocal(services.clock); }
};

std::string cutToWidth(std::string name) {
    name.resize(nameWidth, ' ');
    return name;
}

/// The hours and minutes of a time of day, or of the distance between two times, whose whole days don't
/// count.
DateParts timeOfDay(double days) {
    return dateParts(std::abs(days));
}

std::string hoursAndMinutes(double dateTime) {
    const DateParts parts = dateParts(dateTime);
    return formatNumber(parts.hour, "00") + ":" + formatNumber(parts.minute, "00");
}

/// The times of a satellite that the engine doesn't know are those of the one before it.
bool fillRows(Run& run) {
    double nowUtc = 0;
    run.label.step([&] { nowUtc = ToUTC(run.services.clock, run.now()); });
    double aos = 0;
    double los = 0;
    const ProgramState& state = run.state;
    // Others run at each yield: the favourites may be fewer by then.
    for (int i = 1; i <= state.FavouriteCount; ++i) {
        const FavouriteRecord favourite = state.Favourites[i];
        if (trimmed(favourite.Name).empty()) continue;
        const bool isInRange = !(favourite.Elevation < 0);
        if (!isInRange) {
            run.label.step([&] { aos = engineOf(state).EngineNextAOS(favourite.Name, nowUtc); });
        }
        run.label.step(
            [&] { los = engineOf(state).EngineNextLOS(favourite.Name, isInRange ? nowUtc : aos); });
        ETARow& row = run.rows[i];
        row.Name = cutToWidth(favourite.Name);
        row.rises = isInRange || aos < OrbitEngine::noEventDayNumber();
        row.sets = los < OrbitEngine::noEventDayNumber();
        if (!isInRange) run.label.step([&] { row.AOS = ToLocal(run.services.clock, aos); });
        run.label.step([&] { row.LOS = ToLocal(run.services.clock, los); });
        run.label.step([&] { run.services.events.yield(); });
        if (run.userHasLeft()) return false;
    }
    return true;
}

/// The row behind the last one takes part although it is empty, and sorts ahead of all that wait. One that
/// doesn't rise waits for the end of time, so that it is the one that is pushed out.
bool sortRows(Run& run) {
    const int rounds = run.state.FavouriteCount;
    for (int round = 0; round < rounds; ++round) {
        const int last = run.state.FavouriteCount + 1;
        for (int k = 2; k <= last; ++k) {
            run.label.step([&] {
                if (run.rows[k].AOS < run.rows[k - 1].AOS) std::swap(run.rows[k], run.rows[k - 1]);
            });
            if (!run.yielded(1)) return false;
        }
    }
    return true;
}

void say(Run& run, const ETARow& row, const char* what, int minutes) {
    Speak(run.services, SpokenName(row.Name) + what + MinutesText(toInteger16(minutes)));
}

std::string setText(const ETARow& row) {
    return row.sets ? hoursAndMinutes(row.LOS) : "--:--";
}

void writeWaiting(Run& run, const ETARow& row) {
    constexpr int soonMinutes = 15;
    const DateParts distance = timeOfDay(row.AOS - run.now());
    const bool isSoon = 60 * distance.hour + distance.minute < soonMinutes;
    if (isSoon && run.speaks) say(run, row, " will be in range in ", distance.minute);
    run.target.append(isSoon ? soonColour : waitingColour, row.Name + "\t");
    run.target.append(riseColour, hoursAndMinutes(row.AOS) + "   ");
    run.target.append(setColour, setText(row) + "   \n");
}

void writeInRange(Run& run, const ETARow& row) {
    constexpr int soonMinutes = 3;
    run.target.append(inRangeColour, row.Name + "\t");
    run.target.append(riseColour, "NOW     ");
    run.target.append(setColour, setText(row) + "\n");
    const int minutes = timeOfDay(row.LOS - run.now()).minute;
    if (row.sets && run.speaks && minutes < soonMinutes) say(run, row, " will be out of range in ", minutes);
}

bool writeRows(Run& run) {
    for (int i = 1; i <= run.state.FavouriteCount; ++i) {
        run.label.step([&] {
            const ETARow& row = run.rows[i];
            if (!row.rises) return;
            const DateParts rise = dateParts(row.AOS);
            if (rise.hour + rise.minute > 0) {
                writeWaiting(run, row);
            } else if (!row.Name.empty()) {
                writeInRange(run, row);
            }
        });
        if (!run.yielded(100)) return false;
    }
    return true;
}

}  // namespace

std::string MinutesText(std::int16_t minutes) {
    if (minutes == 0) return "Less than a minute";
    return minutes == 1 ? "1 minute" : std::to_string(minutes) + " minutes";
}

void UpdateQuickETA(RichText& target, bool speak, ProgramState& state, Services& services) {
    if (std::exchange(state.QuickETABusy, true)) return;
    const auto run = std::make_unique<Run>(
        Run{target, speak, state, services, ErrorLabel(services, labels::globalUpdateQuickETA), {}});
    if (!fillRows(*run) || !sortRows(*run)) return;

    target.clear();
    target.append(headingColour, "Upcoming Satellite Passes :\n");
    target.append(headingColour, "Satellite     \tAOS     LOS\n");
    if (!writeRows(*run)) return;
    state.QuickETABusy = false;
}

}  // namespace vantrace
