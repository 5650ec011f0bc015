#include "passes/job_file.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <stdexcept>
#include <system_error>

#include "catalogue/data_files.h"
#include "core/files.h"
#include "core/numbers.h"
#include "core/program_state.h"
#include "core/texts.h"
#include "platform/file_descriptor.h"
#include "platform/file_replacement.h"

namespace vantrace {

namespace {

void addLine(std::string& text, std::string_view line) {
    text += line;
    text += lineEnd;
}

/// Past the satellites, the days and the two flags of a job whose name has been read; to the end of the file
/// where it is shorter.
void passOverJob(JobLines& lines) {
    while (!lines.atEnd() && isSatelliteLine(lines.next())) {
    }
    for (int flags = 0; flags < 2 && !lines.atEnd(); ++flags) lines.next();
}

std::string textWithoutJob(std::string_view text, std::string_view name, const std::filesystem::path& file) {
    JobLines lines(text);
    std::string rest;
    for (bool isFound = false; !isFound;) {
        if (lines.atEnd()) throw FileError(file, "holds no job \"" + std::string(name) + "\"");
        const std::string_view line = lines.next();
        isFound = line == name;
        if (!isFound) addLine(rest, line);
    }
    passOverJob(lines);
    while (!lines.atEnd()) {
        const std::string_view line = lines.next();
        if (!trimmed(line).empty()) addLine(rest, line);
    }
    return rest;
}

/// Gives pass.dat a new text by way of pass.new, which is whole and on the disk before it takes the place.
void rewriteJobs(const ProgramState& state, std::string_view text) {
    const std::filesystem::path file = dataFile(state, jobsFile);
    const std::filesystem::path scratch = dataFile(state, jobsScratchFile);
    struct stat status {};
    if (stat(file.c_str(), &status) != 0 || access(file.c_str(), W_OK) != 0) {
        throw FileError(file, reasonOf(errno));
    }
    std::error_code error;
    // A link stays one.
    if (std::filesystem::is_symlink(file, error)) {
        replaceFile(file, text);
        return;
    }
    // What lies there under the name is replaced, and not what it may point to.
    std::filesystem::remove(scratch, error);
    replaceFile(scratch, text, status.st_mode & mode_t{0777});
    // Who runs this with more rights than the owner has leaves the file the owner's, where that is allowed.
    if (chown(scratch.c_str(), status.st_uid, status.st_gid) != 0) errno = 0;
    std::filesystem::rename(scratch, file, error);
    if (!error) {
        flushFolderOf(file);
        return;
    }
    std::error_code ignored;
    std::filesystem::remove(scratch, ignored);
    throw FileError(file, error.message());
}

}  // namespace

std::string readJobs(const ProgramState& state) {
    return readTextFile(dataFile(state, jobsFile), jobsFileLimitBytes);
}

std::string_view JobLines::next() {
    if (atEnd()) throw std::out_of_range(std::string(jobsFile) + " ends in the middle of a job");
    return m_lines.next();
}

bool isSatelliteLine(std::string_view line) {
    return line.find(';') != std::string_view::npos;
}

std::vector<std::string> jobNames(std::string_view text) {
    std::vector<std::string> names;
    for (JobLines lines(text); !lines.atEnd();) {
        const std::string_view name = trimmed(lines.next());
        if (name.empty()) break;
        names.emplace_back(name);
        passOverJob(lines);
    }
    return names;
}

std::optional<JobToEdit> jobToEdit(std::string_view text, std::string_view name) {
    JobLines lines(text);
    do {
        if (lines.atEnd()) return std::nullopt;
    } while (lines.next() != name);

    JobToEdit job;
    job.name = name;
    while (!lines.atEnd() && !job.days) {
        const std::string_view line = lines.next();
        if (isSatelliteLine(line)) {
            job.satellites.push_back(replacedAll(line, ";", ""));
        } else {
            job.days = numberText(numberValue(line));
        }
    }
    if (!lines.atEnd()) job.isSaved = lines.next() == "1";
    job.isWhole = !lines.atEnd();
    if (job.isWhole) job.isPrinted = lines.next() == "1";
    return job;
}

void appendJob(const ProgramState& state, const JobToEdit& job) {
    const std::filesystem::path file = dataFile(state, jobsFile);
    std::string text = FileExists(file) ? readJobs(state) : std::string();
    // Somebody else's editor may have left the last line without an end.
    if (!text.empty() && !text.ends_with('\n')) text += lineEnd;
    addLine(text, trimmed(job.name));
    for (const std::string& satellite : job.satellites) addLine(text, satellite + ";");
    addLine(text, trimmed(job.days.value_or("")));
    addLine(text, job.isSaved ? "1" : "0");
    addLine(text, job.isPrinted ? "1" : "0");
    replaceFile(file, text);
}

void removeJob(const ProgramState& state, std::string_view name) {
    rewriteJobs(state, textWithoutJob(readJobs(state), name, dataFile(state, jobsFile)));
}

}  // namespace vantrace
