#include "core/view_words.h"

#include "core/config.h"
#include "core/program_state.h"
#include "core/services.h"
#include "core/settings_table.h"
#include "core/window_registry.h"

namespace vantrace {

bool hasLeftViews(const ProgramState& state) {
    return state.MainTag == mainTag::menu || state.MainTag == mainTag::exit;
}

std::string_view worldTag(Services& services) {
    return GetConfig(services, settings::altWorld) == "1" ? mainTag::worldAlt : mainTag::world;
}

void switchView(ProgramState& state, Services& services, std::string_view from, std::string_view next,
                std::string_view neededWindow) {
    if (!neededWindow.empty() && !services.windows.isRegistered(neededWindow)) return;
    state.NextView = next;
    services.windows.unload(from);
}

}  // namespace vantrace
