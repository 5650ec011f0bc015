// The passes of a day, as the window of the predictions lists them.
#include "app/command.h"
#include "app/prediction.h"
#include "passes/calc_results.h"

namespace vantrace {

namespace {

int runPredict(const CommandContext& context) {
    Prediction prediction(context);
    const CalendarDate date = prediction.form().Calendar;
    const Guard guard = prediction.guard();
    for (const std::string& name : namesOf(context, false)) {
        guard([&] {
            CalcResults(prediction.form(), prediction.state(), prediction.services(), name, date.day,
                        date.month, date.year);
        });
    }
    return prediction.write();
}

}  // namespace

Command predictCommand() {
    CommandSyntax syntax;
    syntax.name = "predict";
    syntax.summary = "Lists the passes of satellites on a day, as the tracker's window of predictions does.";
    syntax.details =
        "A pass belongs to the day on which it ends. Times are local, with today's offset from UTC; azimuths "
        "are those of the whole second. Passes whose greatest elevation is below the setting WxEL are left "
        "out. Formats are text (as it is: the report as the tracker saves it), csv, json and ics. "
        "csv and json have the texts of the window, then the start and the end in UTC and the length; "
        "ics is a calendar with an event for each pass.\n\n"
        "Sunlit: at start or end the sun stands higher than -18 degrees below the satellite. Visible: "
        "sunlit, "
        "and at the start the sun stands from -18 to -6 degrees at the observer.";
    syntax.arguments = {"NAME...", "names as in the element files", 1, anyNumber};
    syntax.options = Prediction::options();
    return {syntax, true, runPredict, true};
}

}  // namespace vantrace
