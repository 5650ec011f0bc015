// Prediction jobs: pass.dat in the program folder. A job is its name, a line "NAME;" for each satellite, the
// number of days, and "1" or "0" for saving and for printing, a line each; nothing parts it from the next
// one. A line belongs to the satellites if and only if it holds a ";".
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "passes/pass_windows.h"
#include "platform/text_file.h"

namespace vantrace {

struct ProgramState;

inline constexpr std::string_view jobsFile = "pass.dat";
inline constexpr std::string_view jobsScratchFile = "pass.new";
/// A larger file is refused rather than read; tens of thousands of jobs fit.
inline constexpr std::size_t jobsFileLimitBytes = std::size_t{16} << 20;

/// The text of pass.dat. Throws FileError.
std::string readJobs(const ProgramState& state);

/// Lines of a file that may end too early.
class JobLines {
  public:
    /// The text outlives this.
    explicit JobLines(std::string_view text) : m_lines(text) {}
    bool atEnd() const { return m_lines.atEnd(); }
    /// Throws std::out_of_range at the end.
    std::string_view next();

  private:
    LineReader m_lines;
};

bool isSatelliteLine(std::string_view line);

/// The trimmed names of the jobs in a text of pass.dat, up to its first blank line.
std::vector<std::string> jobNames(std::string_view text);

/// The job behind the first line that is the name exactly, with all ";" taken out of its satellites. Nothing
/// where there is none. Any line counts, so a job named "1" is found in the days or the flags of one before
/// it.
std::optional<JobToEdit> jobToEdit(std::string_view text, std::string_view name);

/// Puts a job behind the others: `name` and `days` are trimmed, `flags` written as they stand. Throws
/// FileError; then the file is as it was. Whoever kills the program at any instant finds pass.dat with all
/// jobs in it, with the new one or without.
void appendJob(const ProgramState& state, const JobToEdit& job);

/// Rewrites pass.dat, by way of pass.new, without the first line that is the name exactly (see jobToEdit) and
/// the job behind it, and without the blank lines that follow. Throws FileError, also where there is no such
/// job; then the file is as it was. At every instant pass.dat has all other jobs.
void removeJob(const ProgramState& state, std::string_view name);

}  // namespace vantrace
