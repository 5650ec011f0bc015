// The calculation of a job: its satellites, day by day.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "core/table.h"

namespace vantrace {

struct CalendarDate;
struct PassPredictionForm;
struct ProgramState;
struct Services;

/// Runs a piece of work and deals with what it throws; the answer is whether it threw nothing.
using Guard = std::function<bool(const std::function<void()>&)>;

/// A job as it is run.
struct JobToRun {
    bool isFound = false;
    Table<std::string, 50> satellites;
    /// How many found room in the table.
    int satelliteCount = 0;
    std::int16_t days = 0;
    bool isSaved = false;
    bool isPrinted = false;
};

/// The job behind the first line that is the name, once trimmed; any line counts. What can't be read is left
/// as it is made.
JobToRun jobToRun(std::string_view text, std::string_view name, char decimalMark, const Guard& guard);

/// The day as a job counts on: past the end of its month it is the first of the next one. February has 28
/// days in every year.
void carryIntoMonth(CalendarDate& date);

/// Puts the passes of all satellites on all days from the form's date on behind the results, each calculation
/// under the guard. False when the user has left the window meanwhile: then `Main.Tag` is "menu" or "exit".
bool calculateJob(const JobToRun& job, PassPredictionForm& form, ProgramState& state, Services& services,
                  const Guard& guard);

}  // namespace vantrace
