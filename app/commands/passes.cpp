// The passes of satellites, the sun and the moon over the observer.
#include <array>
#include <cmath>
#include <memory>

#include "app/command.h"
#include "app/program/arguments.h"
#include "app/sightings.h"
#include "orbit/elements/element_set.h"
#include "orbit/engine_error.h"

namespace vantrace {

namespace {

constexpr std::array passColumns{
    Column{"name", "name", ValueForm::text},
    Column{"rise_utc", "rise UTC", ValueForm::tenths},
    Column{"rise_azimuth_deg", "az", ValueForm::figure, 0},
    Column{"culmination_utc", "highest", ValueForm::tenthsOfDay},
    Column{"max_elevation_deg", "el", ValueForm::figure, 1},
    Column{"culmination_azimuth_deg", "az", ValueForm::figure, 0},
    Column{"set_utc", "set", ValueForm::tenthsOfDay},
    Column{"set_azimuth_deg", "az", ValueForm::figure, 0},
    Column{"duration_s", "length", ValueForm::duration},
    Column{"sunlit", "sunlit", ValueForm::flag},
    Column{"visible", "visible", ValueForm::flag},
};

struct Span {
    Instant from;
    double days = 2.0;
    double leastElevationDeg = -90.0;
};

Span spanOf(const CommandContext& context) {
    // Ten years, and more than nothing.
    constexpr NumberRange daysRange{1.0e-6, 3653.0};
    constexpr NumberRange elevationRange{-90.0, 90.0};
    Span span;
    span.from = timeOrNow(context, "from");
    if (const auto days = context.line.value("days")) span.days = numberOption("days", *days, daysRange);
    if (const auto least = context.line.value("min-elevation")) {
        span.leastElevationDeg = numberOption("min-elevation", *least, elevationRange);
    }
    return span;
}

double degrees(double radians) {
    return radians / radiansPerDegree;
}

Row passRow(OrbitEngine& engine, const std::string& name, const Pass& pass) {
    constexpr double perMillisecond = 1000.0;
    const Sighting sighting = sightingOf(engine, name, pass);
    return {name,
            pass.rise.time,
            degrees(pass.rise.azimuthRad),
            pass.culmination.time,
            degrees(pass.culmination.elevationRad),
            degrees(pass.culmination.azimuthRad),
            pass.set.time,
            degrees(pass.set.azimuthRad),
            std::round(pass.durationS() * perMillisecond) / perMillisecond,
            sighting.sunlit,
            sighting.visible};
}

/// False where the path of the object ends within the span.
bool addPasses(const CommandContext& context, const std::string& name, const Span& span, RowWriter& rows) {
    try {
        const PassSearchResult found = context.engine().passes(name, span.from, span.days);
        for (const Pass& pass : found.passes) {
            const bool isHighEnough = degrees(pass.culmination.elevationRad) >= span.leastElevationDeg;
            if (isHighEnough) rows.add(passRow(context.engine(), name, pass));
        }
        if (found.failureReason.empty()) return true;
        throw EngineError(name, found.failureTime, found.failureReason);
    } catch (const EngineError& failure) {
        context.console().complain(failure.what());
        return false;
    }
}

int runPasses(const CommandContext& context) {
    const std::vector<std::string> names = namesOf(context, true);
    const Span span = spanOf(context);
    const std::unique_ptr<RowWriter> rows = context.rows(passColumns);
    bool isComplete = true;
    for (const std::string& name : names) isComplete = addPasses(context, name, span, *rows) && isComplete;
    rows->finish();
    return isComplete ? exit_status::good : exit_status::incomplete;
}

}  // namespace

Command passesCommand() {
    CommandSyntax syntax;
    syntax.name = "passes";
    syntax.summary = "Lists the passes of satellites, the sun and the moon over the observer.";
    syntax.details =
        "From rise to set over the mathematical horizon, without refraction. A pass under way at the start "
        "is "
        "listed with its true rise; what never sets gives one row with the ends of the span.\n\n"
        "Sunlit: at rise or set the sun stands higher than -18 degrees below the satellite. Visible: sunlit, "
        "and at the rise the sun stands from -18 to -6 degrees at the observer.";
    syntax.arguments = {"NAME...", "names as in the element files; also \"sun\" and \"moon\"", 1, anyNumber};
    syntax.options = {
        {"from", "TIME", "ISO 8601 (else: now)"},
        {"days", "N", "the span searched, up to 3653 (else: 2)"},
        {"min-elevation", "DEG",
         "leaves out passes whose greatest elevation is below; rise and set stay those of the horizon"}};
    return {syntax, true, runPasses};
}

}  // namespace vantrace
