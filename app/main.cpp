// The process around the text program.
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <exception>
#include <iostream>
#include <string>
#include <system_error>
#include <vector>

#include "app/cli.h"
#include "app/output/row_writer.h"
#include "app/program/descriptor.h"
#include "app/program/unsaved_settings.h"
#include "platform/file_settings_store.h"
#include "platform/system_clock.h"
#include "platform/user_environment.h"

namespace {

using namespace vantrace;

int runOnMachine(const std::vector<std::string>& arguments, Console& console) {
    SystemClock clock;
    const UserEnvironment user = userEnvironment();
    FileSettingsStore stored(settingsPath(user));
    // Reading stores defaults: those are the tracker's to store, who knows a first start by what isn't there.
    UnsavedSettings settings(stored);
    Surroundings surroundings{
        clock, settings, machineFormatFromEnvironment(), {executablePath(), user, std::nullopt}};
    return runProgram(arguments, surroundings, console);
}

/// A reader who leaves early (a pager, "head") has had what he wanted.
int statusOfFailedOutput(int error, const Console& console) {
    if (error == EPIPE) return exit_status::good;
    console.complain("the output can't be written: " + std::generic_category().message(error));
    return exit_status::incomplete;
}

}  // namespace

int main(int argc, char** argv) {
    occupyStandardDescriptors();
    std::signal(SIGPIPE, SIG_IGN);
    DescriptorSource in(STDIN_FILENO);
    DescriptorBuffer buffer(STDOUT_FILENO);
    std::ostream out(&buffer);
    Console console{in, out, std::cerr};
    try {
        const int status = runOnMachine({argv + (argc > 0 ? 1 : 0), argv + argc}, console);
        out.flush();
        return buffer.error() == 0 ? status : statusOfFailedOutput(buffer.error(), console);
    } catch (const OutputFailure&) {
        return statusOfFailedOutput(buffer.error(), console);
    } catch (const std::exception& failure) {
        console.complain(failure.what());
        return exit_status::incomplete;
    }
}
