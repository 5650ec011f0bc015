#include "catalogue/favourites.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "catalogue/data_files.h"
#include "core/program_state.h"
#include "core/texts.h"
#include "orbit/elements/element_catalogue.h"
#include "orbit/elements/element_reader.h"
#include "orbit/engine_access.h"
#include "orbit/orbit_engine.h"
#include "platform/text_file.h"

namespace vantrace {

namespace {

constexpr std::size_t lastSaved = 499;

}  // namespace

FavouriteLines readFavouriteLines(const ProgramState& state) {
    const std::string text = readTextFile(dataFile(state, favouritesFile), listLimitBytes);
    FavouriteLines lines;
    for (const std::string_view markedLine : splitLines(text)) {
        const std::string_view line = withoutNameMark(markedLine);
        const std::string_view name = trimmed(line);
        if (name.empty()) {
            continue;
        }
        const OrbitEngine& engine = engineOf(state);
        const bool isListed = engine.EngineSatelliteList().find(line) != std::string::npos;
        if (isListed || engine.catalogue().mayHold(line)) {
            lines.qualifying.emplace_back(name);
        } else {
            lines.dropped.emplace_back(line);
        }
    }
    return lines;
}

void LoadFavourites(ProgramState& state) {
    state.FavouritesUnread = true;
    const FavouriteLines lines = readFavouriteLines(state);
    state.FavouritesUnread = false;
    std::size_t index = 1;
    for (const std::string& name : lines.qualifying) {
        // Past the end the table throws; what it has counts all the same.
        state.Favourites[index].Name = name;
        state.FavouriteCount = static_cast<std::int16_t>(index);
        ++index;
    }
    state.FavouriteCount = static_cast<std::int16_t>(index - 1);
    for (; index <= state.Favourites.bound; ++index) {
        state.Favourites[index].Name.clear();
    }
    SaveFavourites(state);
}

void SaveFavourites(ProgramState& state) {
    std::string text;
    std::int16_t written = 0;
    for (std::size_t index = 1; index <= lastSaved; ++index) {
        const std::string& name = state.Favourites[index].Name;
        if (trimmed(name).empty()) {
            continue;
        }
        text += std::string_view(name).substr(0, cutNameLength);
        text += lineEnd;
        ++written;
    }
    replaceList(state, favouritesFile, text, state.FavouritesUnread);
    state.FavouriteCount = written;
}

bool FavouriteExists(const ProgramState& state, std::string_view name) {
    for (std::size_t i = 1; i <= static_cast<std::size_t>(std::max<std::int16_t>(0, state.FavouriteCount));
         ++i) {
        if (state.Favourites[i].Name == name) return true;
    }
    return false;
}

}  // namespace vantrace
