#include "app/commands/today_passes.h"

#include <algorithm>
#include <array>

#include "app/commands/today_texts.h"
#include "app/program/printable.h"
#include "app/sightings.h"
#include "orbit/engine_error.h"

namespace vantrace {

namespace {

constexpr std::array todaysPassColumns{
    Column{"name", "name", ValueForm::text},
    Column{"rise", "rises UTC", ValueForm::count},
    Column{"rise_local", "local", ValueForm::count},
    Column{"rise_direction", "in", ValueForm::text},
    Column{"culmination", "highest", ValueForm::tenthsOfDay},
    Column{"elevation", "el", ValueForm::figure, 0},
    Column{"culmination_direction", "in", ValueForm::text},
    Column{"set", "sets", ValueForm::tenthsOfDay},
    Column{"set_direction", "in", ValueForm::text},
    Column{"length", "length", ValueForm::duration},
    Column{"seen", "seen", ValueForm::text},
};

struct TodaysPass {
    std::string name;
    Pass pass;
};

struct TodaysPasses {
    std::vector<TodaysPass> passes;
    std::vector<std::string> alwaysUp;
    bool isComplete = true;
};

void collect(const CommandContext& context, const std::string& name, const Instant& now,
             TodaysPasses& today) {
    PassSearchResult found = context.engine().passes(name, now, 1.0);
    for (Pass& pass : found.passes) {
        if (pass.neverSets()) {
            today.alwaysUp.push_back(name);
        } else {
            today.passes.push_back({name, pass});
        }
    }
    if (!found.failureReason.empty()) throw EngineError(name, found.failureTime, found.failureReason);
}

std::string_view seenText(const Sighting& sighting) {
    if (sighting.visible) return "visible";
    return sighting.sunlit ? "sunlit" : "";
}

Row passRow(const CommandContext& context, const TodaysPass& today, const Instant& now) {
    const Pass& pass = today.pass;
    const Instant localRise = plusMinutes(pass.rise.time, minutesEast(context.program.services().clock));
    const auto direction = [](const PassPoint& point) { return std::string(compassPoint(point.azimuthRad)); };
    return {today.name,
            shortTimeText(pass.rise.time, now),
            isoText(localRise, 0).substr(11, 8),
            direction(pass.rise),
            pass.culmination.time,
            degreesOf(pass.culmination.elevationRad),
            direction(pass.culmination),
            pass.set.time,
            direction(pass.set),
            pass.durationS(),
            std::string(seenText(sightingOf(context.engine(), today.name, pass)))};
}

}  // namespace

bool writeTodaysPasses(const CommandContext& context, const std::vector<std::string>& names,
                       const Instant& now) {
    TodaysPasses today;
    const auto guarded = [&](auto&& work) {
        try {
            work();
        } catch (const EngineError& failure) {
            context.console().complain(failure.what());
            today.isComplete = false;
        }
    };
    for (const std::string& name : names) guarded([&] { collect(context, name, now, today); });
    std::ranges::stable_sort(today.passes, {},
                             [](const TodaysPass& pass) { return pass.pass.rise.time.julianDate(); });
    std::vector<Row> rows;
    for (const TodaysPass& pass : today.passes) guarded([&] { rows.push_back(passRow(context, pass, now)); });
    std::ostream& out = context.console().out;
    out << "\nPASSES OF THE NEXT 24 HOURS\n\n";
    writeTable(todaysPassColumns, rows, out);
    for (const std::string& name : today.alwaysUp) out << "\n" << printable(name) << " is up all the time.";
    if (!today.alwaysUp.empty()) out << "\n";
    return today.isComplete;
}

}  // namespace vantrace
