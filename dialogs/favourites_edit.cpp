#include "dialogs/favourites_edit.h"

#include <cstdint>
#include <string_view>

#include "core/error_label.h"
#include "core/labels.h"
#include "core/program_state.h"
#include "core/services.h"
#include "core/texts.h"

namespace vantrace {

namespace {

/// The last entry that is looked at. The one behind it takes what finds no room.
constexpr std::int16_t lastEdited = 499;

bool isBlank(const ProgramState& state, std::int16_t index) {
    return trimmed(state.Favourites[index].Name).empty();
}

void add(ProgramState& state, const std::string& name) {
    std::int16_t index = 1;
    while (index <= lastEdited && !isBlank(state, index)) ++index;
    state.Favourites[index].Name = name;
    state.FavouriteCount = index;
}

void remove(ProgramState& state, std::string_view name) {
    std::int16_t found = 1;
    while (found <= lastEdited && trimmed(state.Favourites[found].Name) != name) ++found;
    if (found > lastEdited) return;
    for (std::int16_t index = found; index < lastEdited; ++index) {
        state.Favourites[index].Name = trimmed(state.Favourites[index + 1].Name);
    }
    state.Favourites[lastEdited].Name.clear();
    state.FavouriteCount = 0;
    for (std::int16_t index = 1; index <= lastEdited; ++index) {
        if (!isBlank(state, index)) ++state.FavouriteCount;
    }
}

}  // namespace

bool IsFavourite(const ProgramState& state, Services& services, const std::string& Name) {
    bool isFound = false;
    ErrorLabel label(services, labels::groupsCONInFaves);
    label.step([&] {
        for (std::int16_t i = 1; !isFound && i <= 500 && !isBlank(state, i); ++i) {
            isFound = state.Favourites[i].Name == Name;
        }
    });
    return isFound;
}

void SetFavourite(ProgramState& state, const std::string& Name, bool Add) {
    if (Add) {
        add(state, Name);
    } else {
        remove(state, trimmed(Name));
    }
}

}  // namespace vantrace
