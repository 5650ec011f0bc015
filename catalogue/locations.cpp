#include "catalogue/locations.h"

#include <cstddef>
#include <exception>
#include <optional>
#include <stdexcept>
#include <string_view>

#include "catalogue/data_files.h"
#include "core/numbers.h"
#include "core/program_state.h"
#include "core/texts.h"
#include "platform/text_file.h"

namespace vantrace {

namespace {

LocationRecord locationOf(std::string_view line, const MachineFormat& format) {
    LocationRecord location;
    location.Shown = line.substr(0, 1);
    const std::string_view fields = line.substr(1);
    location.Name = GetDelimitedWord(fields, 1, ";");
    // In the table it would end the places, and hide those behind it.
    if (trimmed(location.Name).empty()) throw std::invalid_argument("a place without a name");
    location.Longitude = GetDelimitedWord(fields, 2, ";");
    location.Latitude = GetDelimitedWord(fields, 3, ";");
    const std::optional<double> height = toDouble(GetDelimitedWord(fields, 4, ";"), format.decimalMark);
    if (!height) {
        throw std::invalid_argument("a place without a height");
    }
    location.Height = toInteger16(*height);
    if (readsCommaAsDecimalMark(format)) {
        location.Longitude = replacedAll(location.Longitude, ".", ",");
        location.Latitude = replacedAll(location.Latitude, ".", ",");
    }
    return location;
}

}  // namespace

std::vector<std::string> LoadLocations(ProgramState& state, const MachineFormat& format) {
    state.LocationsUnread = true;
    const std::string text = readTextFile(dataFile(state, locationsFile), listLimitBytes);
    state.LocationsUnread = false;
    std::vector<std::string> skipped;
    std::size_t index = 1;
    for (const std::string_view line : splitLines(text)) {
        if (trimmed(line).empty()) {
            break;
        }
        try {
            state.Locations[index] = locationOf(line, format);
            ++index;
        } catch (const std::exception&) {
            skipped.emplace_back(line);
        }
    }
    for (; index <= state.Locations.bound; ++index) {
        state.Locations[index].Name.clear();
        state.Locations[index].Shown = "0";
    }
    return skipped;
}

void SaveLocations(ProgramState& state) {
    std::string text;
    std::size_t index = 1;
    for (; index <= state.Locations.bound && !state.Locations[index].Name.empty(); ++index) {
        const LocationRecord& location = state.Locations[index];
        if (trimmed(location.Name).empty()) {
            continue;
        }
        // The first character of a line is always the sign, so that it never eats one of the name.
        text += location.Shown.empty() ? "0" : location.Shown;
        text += location.Name + ";" + location.Longitude + ";" + location.Latitude + ";" +
                std::to_string(location.Height);
        text += lineEnd;
    }
    replaceList(state, locationsFile, text, state.LocationsUnread);
    if (index > state.Locations.bound) {
        throw std::out_of_range("locations: no entry without a name ends the table of " +
                                std::to_string(state.Locations.bound));
    }
}

}  // namespace vantrace
