// What vantrace-station is told on its command line and in station.conf.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/station/network_address.h"
#include "platform/line_publisher.h"
#include "platform/qt/command_line.h"
#include "station/steering/steering.h"

namespace vantrace {

struct StationOptions {
    NetworkAddress line{"127.0.0.1", trackingLinePort, {}};
    std::optional<NetworkAddress> rotator = NetworkAddress{"127.0.0.1", 4533, {}};
    std::optional<NetworkAddress> radio = NetworkAddress{"127.0.0.1", 4532, {}};
    /// A radio of its own for the uplink.
    std::optional<NetworkAddress> transmitter;
    /// 0 to 45.
    double deadBandDeg = 2.0;
    /// 0 to 1,000,000.
    double tuneStepHz = 10.0;
    /// Names of 1 to 20 visible signs.
    RadioVfos vfos;
    /// Azimuth limits of -720 to 1080 degrees, at least one degree apart; elevation limits of -90 to 180. The
    /// place of rest lies within the same. 0 to 86,400 seconds of lead.
    SteeringOptions steering;
    /// Commands are printed instead of sent.
    bool isDry = false;
    /// The observer, in place of the stored settings: as the option has it.
    std::optional<std::string> site;
};

/// The syntax of the command line.
ProgramSyntax stationSyntax();

/// Reads the values. Throws UserError.
StationOptions stationOptions(const CommandLine& line);

/// The lines of a file of options, "NAME VALUE" or "NAME", as arguments "--NAME=VALUE" and "--NAME". Blank
/// lines and what follows "#" at the start of a line count for nothing. Throws UserError with the file and
/// the line for an option that nobody knows, or that belongs on the command line; FileError where the file
/// can't be read.
std::vector<std::string> optionsOfFile(const std::filesystem::path& file);

}  // namespace vantrace
