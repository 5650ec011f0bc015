#include "passes/job_run.h"

#include <array>
#include <optional>
#include <stdexcept>

#include "core/numbers.h"
#include "core/program_state.h"
#include "core/services.h"
#include "core/texts.h"
#include "core/view_words.h"
#include "passes/calc_results.h"
#include "passes/job_file.h"
#include "passes/pass_prediction_form.h"

namespace vantrace {

namespace {

std::int16_t daysOf(std::string_view line, char decimalMark) {
    const std::optional<double> days = toDouble(line, decimalMark);
    if (!days) throw std::invalid_argument("\"" + std::string(line) + "\" is no number of days");
    return toInteger16(*days);
}

}  // namespace

JobToRun jobToRun(std::string_view text, std::string_view name, char decimalMark, const Guard& guard) {
    JobToRun job;
    JobLines lines(text);
    while (!job.isFound && !lines.atEnd()) job.isFound = trimmed(lines.next()) == name;
    if (!job.isFound) return job;

    std::string_view line;
    const bool hasDays = guard([&] {
        bool isFull = false;
        for (line = lines.next(); isSatelliteLine(line); line = lines.next()) {
            // The first one that finds no room is a failure, the others behind it aren't told.
            if (isFull) continue;
            isFull = !guard([&] {
                job.satellites[job.satelliteCount + 1] = std::string(line.substr(0, line.find(';')));
                ++job.satelliteCount;
            });
        }
    });
    if (!hasDays) return job;
    guard([&] { job.days = daysOf(line, decimalMark); });
    guard([&] {
        job.isSaved = lines.next() == "1";
        job.isPrinted = lines.next() == "1";
    });
    return job;
}

void carryIntoMonth(CalendarDate& date) {
    constexpr std::array<std::int16_t, 12> lengths = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (date.day > lengths.at(static_cast<std::size_t>(date.month - 1))) {
        date.day = 1;
        ++date.month;
    }
    if (date.month > 12) {
        date.month = 1;
        ++date.year;
    }
}

bool calculateJob(const JobToRun& job, PassPredictionForm& form, ProgramState& state, Services& services,
                  const Guard& guard) {
    CalendarDate date = form.Calendar;
    for (std::int16_t round = 0; round < job.days; ++round, ++date.day) {
        carryIntoMonth(date);
        for (int i = 1; i <= job.satelliteCount; ++i) {
            guard([&] {
                CalcResults(form, state, services, job.satellites[i], date.day, date.month, date.year);
            });
            if (hasLeftViews(state)) return false;
        }
    }
    return true;
}

}  // namespace vantrace
