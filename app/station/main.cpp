// The process of the station program.
#include <unistd.h>

#include <QCoreApplication>
#include <csignal>
#include <exception>
#include <iostream>

#include "app/program/descriptor.h"
#include "app/station/station_main.h"
#include "app/station/termination.h"
#include "platform/system_clock.h"
#include "platform/user_environment.h"

namespace {

int runOnMachine(int argc, char** argv) {
    using namespace vantrace;
    std::signal(SIGPIPE, SIG_IGN);
    Termination termination;
    const std::vector<std::string> arguments{argv + (argc > 0 ? 1 : 0), argv + argc};
    const QCoreApplication application(argc, argv);
    SystemClock clock;
    const UserEnvironment user = userEnvironment();
    FileSettingsStore settings(settingsPath(user));
    DescriptorSource in(STDIN_FILENO);
    Console console{in, std::cout, std::cerr};
    StationSurroundings surroundings{clock, settings, machineFormatFromEnvironment(), [&] {
                                         return ProgramFolderRequest{executablePath(), user, std::nullopt};
                                     }};
    return runStation(arguments, surroundings, console, termination);
}

}  // namespace

int main(int argc, char** argv) {
    vantrace::occupyStandardDescriptors();
    try {
        return runOnMachine(argc, argv);
    } catch (const std::exception& failure) {
        std::cerr << "vantrace-station: " << failure.what() << std::endl;
        return vantrace::exit_status::incomplete;
    }
}
