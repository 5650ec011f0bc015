// Where things are, at one time or at several.
#include <memory>
#include <optional>

#include "app/command.h"
#include "app/commands/track_batch.h"
#include "app/commands/track_rows.h"
#include "app/program/arguments.h"
#include "orbit/engine_error.h"

namespace vantrace {

namespace {

struct Times {
    Instant start;
    double everyS = 0.0;
    int count = 1;
};

Times timesOf(const CommandContext& context) {
    constexpr NumberRange everyRangeS{0.000001, 1.0e9};
    constexpr NumberRange countRange{1.0, 1.0e9};
    Times times;
    times.start = timeOrNow(context, "at");
    const std::optional<std::string> every = context.line.value("every");
    const std::optional<std::string> count = context.line.value("count");
    if (every.has_value() != count.has_value()) throw UserError("--every and --count go together");
    if (every) {
        times.everyS = numberOption("every", *every, everyRangeS);
        times.count = wholeNumberOption("count", *count, countRange);
    }
    return times;
}

bool addRow(const CommandContext& context, const std::string& name, const Instant& time, RowWriter& rows) {
    try {
        rows.add(trackRow(context.engine(), name, time));
        return true;
    } catch (const EngineError& failure) {
        context.console().complain(failure.what());
        rows.add(failedTrackRow(name, time));
        return false;
    }
}

int trackNames(const CommandContext& context) {
    const std::vector<std::string> names = namesOf(context, true);
    const Times times = timesOf(context);
    const std::unique_ptr<RowWriter> rows = context.rows(trackColumns());
    bool isComplete = true;
    for (const std::string& name : names) {
        for (int i = 0; i < times.count; ++i) {
            isComplete =
                addRow(context, name, plusSeconds(times.start, times.everyS * i), *rows) && isComplete;
        }
    }
    rows->finish();
    return isComplete ? exit_status::good : exit_status::incomplete;
}

int runTrack(const CommandContext& context) {
    const std::optional<std::string> batch = context.line.value("batch");
    if (!batch) {
        if (context.line.arguments.empty()) throw UserError("track needs NAME... or --batch FILE");
        return trackNames(context);
    }
    if (!context.line.arguments.empty()) throw UserError("--batch takes its names from the file alone");
    for (const char* option : {"at", "every", "count"}) {
        if (context.line.has(option)) {
            throw UserError("--batch takes its times from the file, not from --" + std::string(option));
        }
    }
    return trackBatch(context, *batch);
}

}  // namespace

Command trackCommand() {
    CommandSyntax syntax;
    syntax.name = "track";
    syntax.summary = "Tells where satellites, the sun and the moon are at one time, or at several.";
    syntax.details =
        "Direction and distance for the observer, geometric, without refraction; the place on the ground "
        "below. With --every and --count the rows of each name follow each other in time.\n\n"
        "A batch has lines TIME,NAME; the name is all that follows the first comma. A line that can't be "
        "answered gives a row without figures, and the batch goes on.";
    syntax.arguments = {"NAME...", "names as in the element files; also \"sun\" and \"moon\"", 0, anyNumber};
    syntax.options = {{"at", "TIME", "ISO 8601, such as 2026-08-22T10:00:00.5Z (else: now)"},
                      {"every", "SECONDS", "the time between rows"},
                      {"count", "N", "how many rows of each name"},
                      {"batch", "FILE", "times and names from a file, or from standard input for \"-\""}};
    return {syntax, true, runTrack};
}

}  // namespace vantrace
