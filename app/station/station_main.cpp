#include "app/station/station_main.h"

#include <QCoreApplication>
#include <cerrno>
#include <csignal>
#include <deque>
#include <filesystem>
#include <memory>
#include <set>

#include "app/program/arguments.h"
#include "app/program/printable.h"
#include "app/program/unsaved_settings.h"
#include "app/station/engine_passes.h"
#include "app/station/single_copy.h"
#include "app/station/station_program.h"
#include "app/station/termination.h"

namespace vantrace {

namespace {

/// What the file of options says, and then the command line, which has the last word.
CommandLine withFile(const CommandLine& line, const std::vector<std::string>& arguments,
                     const std::string& programFolder) {
    const std::optional<std::string> named = line.value("conf");
    const std::filesystem::path file = named ? *named : programFolder + "station.conf";
    std::error_code error;
    if (!named && !std::filesystem::exists(file, error)) return line;
    std::vector<std::string> all = optionsOfFile(file);
    all.insert(all.end(), arguments.begin(), arguments.end());
    return parseCommandLine(stationSyntax(), all);
}

/// Ends the copies that hold the daemons of these options.
int stopRunning(const StationOptions& options, Console& console) {
    const std::filesystem::path folder = lockFolder();
    std::set<pid_t> holders;
    for (const auto* const address : {&options.rotator, &options.radio, &options.transmitter}) {
        const std::optional<pid_t> holder =
            *address ? holderOf(folder, (*address)->daemon()) : std::optional<pid_t>();
        if (holder) holders.insert(*holder);
    }
    for (const pid_t holder : holders) {
        if (::kill(holder, SIGTERM) != 0) {
            throw UserError("process " + std::to_string(holder) + ": " + reasonOf(errno));
        }
        console.err << "vantrace-station: process " << holder << " is asked to end\n" << std::flush;
    }
    if (!holders.empty()) return exit_status::good;
    console.err << "vantrace-station: none runs for these daemons\n" << std::flush;
    return exit_status::incomplete;
}

/// Each daemon takes orders from one program.
std::deque<SingleCopy> locksOf(const StationOptions& options) {
    std::deque<SingleCopy> locks;
    if (options.isDry) return locks;
    const std::filesystem::path folder = lockFolder();
    for (const auto* const address : {&options.rotator, &options.radio, &options.transmitter}) {
        if (*address) locks.emplace_back(folder, (*address)->daemon());
    }
    return locks;
}

int steer(const CommandLine& line, const std::vector<std::string>& arguments,
          const ProgramFolderRequest& folder, StationSurroundings& surroundings, Console& console,
          Termination& termination) {
    UnsavedSettings settings(surroundings.settings);
    Surroundings parts{surroundings.clock, settings, surroundings.format, folder};
    TextProgram program(parts, console, line.value("data"));
    const StationOptions options = stationOptions(withFile(line, arguments, program.state().AppPath));
    if (line.has("stop")) return stopRunning(options, console);
    const std::optional<Site> site = options.site ? std::optional(parseSite(*options.site)) : std::nullopt;
    const std::deque<SingleCopy> locks = locksOf(options);
    EnginePasses passes(program, site, [&] { surroundings.settings.refresh(); });
    const auto tell = [&](std::string_view text) {
        console.err << isoText(program.now(), 0) + " " + printable(text) + "\n" << std::flush;
    };
    StationProgram station(options, {[&] { return program.now(); }, passes, tell, console.out});
    termination.onRequest([&] { station.finish([] { QCoreApplication::quit(); }); });
    return QCoreApplication::exec();
}

void print(Console& console, const std::string& text) {
    console.out << text << std::flush;
}

}  // namespace

int runStation(const std::vector<std::string>& arguments, StationSurroundings& surroundings, Console& console,
               Termination& termination) {
    const ProgramSyntax syntax = stationSyntax();
    int statusOfFailure = exit_status::userError;
    try {
        const CommandLine line = parseCommandLine(syntax, arguments);
        switch (line.request) {
            case CommandLine::Request::help:
                print(console, helpText(syntax, {}));
                return exit_status::good;
            case CommandLine::Request::version:
                print(console, syntax.name + " " + syntax.version + "\n");
                return exit_status::good;
            case CommandLine::Request::run:
                break;
        }
        // A machine that doesn't tell where the program lies is no mistake of the user.
        statusOfFailure = exit_status::incomplete;
        const ProgramFolderRequest folder = surroundings.folder();
        statusOfFailure = exit_status::userError;
        return steer(line, arguments, folder, surroundings, console, termination);
    } catch (const std::exception& failure) {
        // Whatever else goes wrong before it runs is a mistake of the user, or a file that he named.
        console.err << syntax.name + ": " + printable(failure.what()) + "\n" << std::flush;
        return statusOfFailure;
    }
}

}  // namespace vantrace
