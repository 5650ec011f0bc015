#include "passes/group_names.h"

#include <filesystem>

#include "catalogue/data_files.h"
#include "catalogue/element_files.h"
#include "core/files.h"
#include "core/program_state.h"
#include "core/services.h"
#include "core/texts.h"
#include "core/view_words.h"
#include "orbit/elements/element_reader.h"
#include "platform/text_file.h"

namespace vantrace {

namespace {

/// Of groups of one name the last one counts.
std::string fileOfGroup(const ProgramState& state, std::string_view group) {
    std::string file;
    for (std::int16_t i = 1; i <= state.GroupCount; ++i) {
        if (state.Groups[i].Name == group) file = elementFileName(state.Groups[i].Url);
    }
    return file;
}

}  // namespace

void fillGroups(DropDown& groups, const ProgramState& state) {
    for (std::int16_t i = 1; i <= state.GroupCount; ++i) groups.list.push_back(state.Groups[i].Name);
}

void fillFavourites(DropDown& favourites, const ProgramState& state) {
    for (std::int16_t i = 1; i <= state.FavouriteCount; ++i) {
        favourites.list.push_back(state.Favourites[i].Name);
    }
}

void fillSatellites(DropDown& satellites, std::string_view prompt, std::string_view group,
                    const ProgramState& state, Services& services) {
    satellites.empty(prompt);
    const std::string bareName = fileOfGroup(state, group);
    const std::filesystem::path file = dataFile(state, bareName);
    if (bareName.empty() || !FileExists(file)) {
        services.dialogs.message(
            bareName + " satellite group keps are not updated yet, the keplerian file doesn't exist");
        return;
    }
    const std::string text = readTextFile(file, elementFileLimitBytes);
    const unsigned own = satellites.emptyings;
    for (LineReader lines(text); !lines.atEnd();) {
        const std::string_view name = lines.next();
        if (lines.atEnd()) return;
        lines.next();
        if (lines.atEnd()) return;
        lines.next();
        satellites.list.emplace_back(trimmed(withoutNameMark(name)));
        services.events.yield();
        if (satellites.emptyings != own || state.MainTag == mainTag::exit) return;
    }
}

}  // namespace vantrace
