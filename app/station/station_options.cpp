#include "app/station/station_options.h"

#include <algorithm>
#include <array>
#include <cstdlib>

#include "app/program/arguments.h"
#include "core/version.h"
#include "platform/ascii.h"
#include "platform/line_publisher.h"
#include "platform/text_file.h"

namespace vantrace {

namespace {

constexpr std::size_t optionFileLimitBytes = std::size_t{1} << 16;
/// These say where the file of options is, or end the program.
constexpr std::array<std::string_view, 5> commandLineOnly{"data", "conf", "stop", "help", "version"};

std::vector<OptionSyntax> optionSyntax() {
    return {
        {"line", "PLACE",
         std::string("where the tracker tells its line: HOST:PORT, the path of a local socket, or ") +
             "\"local\" for the one in $XDG_RUNTIME_DIR (else: 127.0.0.1:" +
             std::to_string(trackingLinePort) + ")"},
        {"rotator", "HOST:PORT", "the rotator's daemon, rotctld, or \"none\" (else: 127.0.0.1:4533)"},
        {"radio", "HOST:PORT",
         "the radio's daemon, rigctld, or \"none\" (else: 127.0.0.1:4532); it receives on its first VFO and, "
         "split, transmits on its second"},
        {"receive-vfo", "NAME", "what the daemon calls the VFO that is tuned to receive (else: VFOA)"},
        {"transmit-vfo", "NAME", "and the one that a split radio transmits on, such as Sub (else: VFOB)"},
        {"transmitter", "HOST:PORT",
         "the daemon of another radio, which gets the uplink; the first one then only receives"},
        {"azimuth", "LEAST,MOST",
         "the rotator's azimuths in degrees, such as 0,360 or -180,180 or 0,450 (else: as its daemon tells)"},
        {"elevation", "LEAST,MOST",
         "its elevations; with 0,180 it can look over the top (else: as its daemon tells)"},
        {"dead-band", "DEGREES", "smaller movements are left out (else: 2)"},
        {"tune-step", "HZ", "smaller changes of a frequency are left out (else: 10)"},
        {"lead", "MINUTES", "so long before rise the rotator waits where the pass begins (else: 3)"},
        {"park", "AZ,EL",
         "where the rotator goes at loss of signal; \"daemon\" for the place that its daemon knows, \"stay\" "
         "for none (else: stay)"},
        {"tune-always", "", "tunes the radio below the horizon as well, not only for a pass"},
        {"dry", "", "prints the commands instead of sending them; nothing is connected but the line"},
        {"stop", "", "ends the copy that runs with the same options, as does \"wispdde.exe --stop\""},
        {"site", "LAT,LON,HEIGHT_M",
         "the observer: degrees north, degrees east, metres (else: the stored settings)"},
        {"data", "DIR", "the folder of the element files (else: the program folder)"},
        {"conf", "FILE",
         "a file of these options, one a line without the dashes (else: station.conf in the program folder, "
         "where there is one); the command line has the last word"}};
}

std::optional<NetworkAddress> addressOrNone(const CommandLine& line, std::string_view option,
                                            const std::optional<NetworkAddress>& usual) {
    const std::optional<std::string> text = line.value(option);
    if (!text) return usual;
    if (*text == "none") return std::nullopt;
    return addressOption(option, *text);
}

/// One daemon has one device.
void refuseTheSame(const std::string& option, const std::optional<NetworkAddress>& address,
                   const std::string& other, const std::optional<NetworkAddress>& taken) {
    if (!address || !taken || address->daemon() != taken->daemon()) return;
    throw UserError("--" + option + ": " + inQuotes(address->text()) + " is the " + other +
                    "'s daemon already");
}

NetworkAddress lineAddress(const CommandLine& line, const NetworkAddress& usual) {
    const std::optional<std::string> text = line.value("line");
    if (!text) return usual;
    if (text->starts_with('/')) return {{}, 0, *text};
    if (*text != "local") return addressOption("line", *text);
    const char* const folder = std::getenv("XDG_RUNTIME_DIR");
    if (folder == nullptr || *folder != '/') {
        throw UserError("--line: \"local\" needs $XDG_RUNTIME_DIR, which isn't set");
    }
    return {{}, 0, std::string(folder) + "/" + std::string(trackingLineSocket)};
}

std::optional<std::pair<double, double>> pairOption(const CommandLine& line, std::string_view option,
                                                    const NumberRange& range) {
    const std::optional<std::string> text = line.value(option);
    if (!text) return std::nullopt;
    const std::vector<double> values = numberListOption(option, *text, range);
    if (values.size() != 2) {
        throw UserError("--" + std::string(option) + ": " + inQuotes(*text) + " has not two parts");
    }
    return std::pair(values[0], values[1]);
}

std::optional<std::pair<double, double>> limitsOption(const CommandLine& line, std::string_view option,
                                                      const NumberRange& range, double leastSpan) {
    const auto limits = pairOption(line, option, range);
    if (limits && limits->second - limits->first < leastSpan) {
        throw UserError("--" + std::string(option) + ": " + inQuotes(*line.value(option)) +
                        " doesn't lead from a least to a greatest angle");
    }
    return limits;
}

void readPark(const CommandLine& line, SteeringOptions& steering) {
    const std::optional<std::string> text = line.value("park");
    if (!text || *text == "stay") return;
    steering.atLoss = SteeringOptions::AtLoss::parkByDaemon;
    if (*text == "daemon") return;
    const auto position = pairOption(line, "park", {-720.0, 1080.0});
    if (!position || position->second < -90.0 || position->second > 180.0) {
        throw UserError("--park: " + inQuotes(*text) + " has an elevation beyond -90 to 180");
    }
    steering.atLoss = SteeringOptions::AtLoss::goToPark;
    steering.park = {position->first, position->second};
}

std::string vfoOr(const CommandLine& line, std::string_view option, const std::string& usual) {
    constexpr std::size_t longestName = 20;
    const std::optional<std::string> text = line.value(option);
    if (!text) return usual;
    const bool isName = !text->empty() && text->size() <= longestName &&
                        std::ranges::all_of(*text, [](char sign) { return sign > ' ' && sign <= '~'; });
    if (!isName) throw UserError("--" + std::string(option) + ": " + inQuotes(*text) + " is no name");
    return *text;
}

double numberOr(const CommandLine& line, std::string_view option, const NumberRange& range, double usual) {
    const std::optional<std::string> text = line.value(option);
    return text ? numberOption(option, *text, range) : usual;
}

}  // namespace

ProgramSyntax stationSyntax() {
    ProgramSyntax syntax;
    syntax.name = "vantrace-station";
    syntax.version = fullVersion;
    CommandSyntax command;
    command.summary =
        "Steers a rotator and a radio by the line that the tracker's window Radio and Rotor Control tells.";
    command.details =
        "It speaks to the daemons rotctld and rigctld. Where the elements of the satellite are in the "
        "program folder, the whole pass is planned ahead, so that the rotator needn't turn back in its "
        "middle: through an overlap of its azimuths, or over the top. Else it follows the line alone. It "
        "ends by SIGINT or SIGTERM, or by another copy with --stop; the rotator then stops.";
    command.options = optionSyntax();
    syntax.commands.push_back(std::move(command));
    return syntax;
}

StationOptions stationOptions(const CommandLine& line) {
    constexpr double secondsPerMinute = 60.0;
    StationOptions options;
    options.line = lineAddress(line, options.line);
    options.rotator = addressOrNone(line, "rotator", options.rotator);
    options.radio = addressOrNone(line, "radio", options.radio);
    options.transmitter = addressOrNone(line, "transmitter", std::nullopt);
    refuseTheSame("transmitter", options.transmitter, "radio", options.radio);
    refuseTheSame("transmitter", options.transmitter, "rotator", options.rotator);
    refuseTheSame("radio", options.radio, "rotator", options.rotator);
    options.vfos = {vfoOr(line, "receive-vfo", options.vfos.receive),
                    vfoOr(line, "transmit-vfo", options.vfos.transmit)};
    options.deadBandDeg = numberOr(line, "dead-band", {0.0, 45.0}, options.deadBandDeg);
    options.tuneStepHz = numberOr(line, "tune-step", {0.0, 1e6}, options.tuneStepHz);
    options.isDry = line.has("dry");
    options.site = line.value("site");
    SteeringOptions& steering = options.steering;
    steering.azimuthLimitsDeg = limitsOption(line, "azimuth", {-720.0, 1080.0}, 1.0);
    steering.elevationLimitsDeg = limitsOption(line, "elevation", {-90.0, 180.0}, 0.0);
    steering.leadSeconds =
        secondsPerMinute * numberOr(line, "lead", {0.0, 1440.0}, steering.leadSeconds / secondsPerMinute);
    steering.tunesBelowHorizon = line.has("tune-always");
    readPark(line, steering);
    return options;
}

std::vector<std::string> optionsOfFile(const std::filesystem::path& file) {
    const std::string text = readTextFile(file, optionFileLimitBytes);
    const std::vector<OptionSyntax> known = optionSyntax();
    std::vector<std::string> arguments;
    int number = 0;
    for (const std::string_view whole : splitLines(text)) {
        ++number;
        const std::string_view line = withoutBlanks(whole);
        if (line.empty() || line.starts_with('#')) continue;
        const std::size_t end = std::min(line.find_first_of(" \t="), line.size());
        const std::string name(line.substr(0, end));
        const auto option = std::ranges::find(known, name, &OptionSyntax::name);
        const bool isOthers = std::ranges::find(commandLineOnly, name) != commandLineOnly.end();
        if (option == known.end() || isOthers) {
            throw UserError(file.string() + ", line " + std::to_string(number) + ": " + inQuotes(name) +
                            " is no option that can stand here");
        }
        const std::size_t value = std::min(line.find_first_not_of(" \t=", end), line.size());
        arguments.push_back("--" + name);
        if (!option->valueName.empty()) arguments.back() += "=" + std::string(line.substr(value));
    }
    return arguments;
}

}  // namespace vantrace
