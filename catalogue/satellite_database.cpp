#include "catalogue/satellite_database.h"

#include <cstddef>
#include <filesystem>

#include "catalogue/data_files.h"
#include "core/error_label.h"
#include "core/files.h"
#include "core/labels.h"
#include "core/program_state.h"
#include "core/services.h"
#include "core/texts.h"
#include "platform/text_file.h"

namespace vantrace {

namespace {

bool endsRecord(std::string_view line) {
    return line.starts_with("***");
}

/// Reads up to and including the first line of the first record that carries the needle; false where none
/// does.
bool findRecord(LineReader& lines, const std::string& needle) {
    bool isFirstLine = true;
    while (!lines.atEnd()) {
        const std::string_view line = lines.next();
        if (endsRecord(line)) {
            isFirstLine = true;
        } else if (isFirstLine) {
            if (replacedAll(line, "-", " ").find(needle) != std::string::npos) {
                return true;
            }
            isFirstLine = false;
        }
    }
    return false;
}

/// What the rest of a record says.
std::string described(LineReader& lines) {
    constexpr std::size_t keyWidth = 6;
    constexpr std::size_t valueColumn = 8;
    std::string result;
    std::string_view notes;
    while (!lines.atEnd()) {
        const std::string_view line = lines.next();
        if (endsRecord(line)) {
            break;
        }
        const std::string_view key = line.substr(0, keyWidth);
        const std::string_view value = line.size() < valueColumn ? "" : line.substr(valueColumn - 1);
        const auto append = [&](std::string_view before, std::string_view after) {
            result += before;
            result += value;
            result += after;
            result += lineEnd;
        };
        if (key == "NAME  ") {
            append("(", ")");
        } else if (key == "NOTES ") {
            notes = value;
        } else if (key == "BEACON") {
            append("Beacon: ", "");
        } else if (key == "UPLINK") {
            append("Uplink: ", "");
        } else if (key == "DNLINK") {
            append("Downlink: ", "");
        }
    }
    result += "Notes: ";
    result += notes;
    return result;
}

}  // namespace

std::string SatelliteDataFunc(ProgramState& state, Services& services, std::string_view name) {
    ErrorLabel label(services, labels::globalSatelliteDataFunc);
    const std::filesystem::path file = dataFile(state, satelliteFile);
    std::string result;
    if (!FileExists(file)) {
        label.step([&] { services.dialogs.message("Satellite.dat file is missing !!"); });
        return result;
    }
    label.step([&] {
        const std::string text = readTextFile(file, satelliteFileLimitBytes);
        LineReader lines(text);
        if (findRecord(lines, replacedAll(trimmed(name), "-", " "))) {
            result = "Data for " + std::string(name);
            result += lineEnd;
            result += described(lines);
        }
    });
    return result;
}

}  // namespace vantrace
