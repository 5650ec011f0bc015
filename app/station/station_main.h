// The run of vantrace-station, apart from its process.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "app/program/text_program.h"
#include "platform/file_settings_store.h"

namespace vantrace {

class Termination;

struct StationSurroundings {
    Clock& clock;
    FileSettingsStore& settings;
    MachineFormat format;
    /// Asked only where it steers; what it throws ends the program.
    std::function<ProgramFolderRequest()> folder;
};

/// Runs until it is asked to end; the answer is the exit status. Needs a QCoreApplication.
int runStation(const std::vector<std::string>& arguments, StationSurroundings& surroundings, Console& console,
               Termination& termination);

}  // namespace vantrace
