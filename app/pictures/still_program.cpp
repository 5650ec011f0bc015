#include "app/pictures/still_program.h"

#include "app/program/arguments.h"
#include "app/program/services_with.h"
#include "core/config.h"
#include "core/numbers.h"
#include "orbit/engine_error.h"

namespace vantrace {

namespace {

/// An engine with the clock that it asks for local time.
struct ClockedEngine {
    explicit ClockedEngine(const FixedClock& fixed) : clock(fixed), engine(&clock) {}
    FixedClock clock;
    OrbitEngine engine;
};

std::shared_ptr<OrbitEngine> engineAt(const FixedClock& clock, const std::string& folder) {
    const auto holder = std::make_shared<ClockedEngine>(clock);
    holder->engine.EngineSetKepPath(folder);
    return {holder, &holder->engine};
}

}  // namespace

StillProgram::StillProgram(const CommandContext& context, const Instant& time, const std::string& tag)
    : m_context(context),
      m_time(time),
      m_settings(context.program.services().settings),
      m_clock(readingAt(time)),
      m_errorLog(m_clock, context.program.services().format),
      m_services(servicesWith(context.program.services(), m_clock, m_settings, m_errorLog)) {
    m_settings.set(settings::recPrimary.key, "0");
    m_settings.set(settings::recWxsat.key, "0");
    const std::optional<std::string> site = context.line.value("site");
    state().OrbitEngine = engineAt(m_clock, state().AppPath);
    context.program.setSite(site ? parseSite(*site) : siteOfSettings(m_services));
    state().MainTag = tag;
    state().CompatibilityMode = numberValue(GetConfig(m_services, settings::compatibility)) == 1;
}

void StillProgram::complain(const std::string& text) {
    m_context.console().complain(text);
    m_isComplete = false;
}

bool StillProgram::canBePlaced(const std::string& name) {
    try {
        state().OrbitEngine->track(name, m_time);
        return true;
    } catch (const EngineError& failure) {
        complain(failure.what());
        return false;
    }
}

void StillProgram::setSatellites(const std::vector<std::string>& names, std::size_t primary) {
    constexpr std::size_t most = decltype(ProgramState::Favourites)::bound;
    state().FavouriteCount = 0;
    state().PrimarySatIndex = 0;
    for (std::size_t i = 0; i < names.size(); ++i) {
        // The primary one always finds room.
        const auto count = static_cast<std::size_t>(state().FavouriteCount);
        const std::size_t room = i < primary && primary < names.size() ? most - 1 : most;
        if (count >= room) {
            complain("there is room for " + std::to_string(most) + " satellites; " + inQuotes(names[i]) +
                     " is left out");
            continue;
        }
        if (!canBePlaced(names[i])) continue;
        state().Favourites[++state().FavouriteCount].Name = names[i];
        if (i == primary) state().PrimarySatIndex = state().FavouriteCount;
    }
    if (state().PrimarySatIndex == 0 && state().FavouriteCount > 0) state().PrimarySatIndex = 1;
    state().PrimarySatName = state().Favourites[state().PrimarySatIndex].Name;
}

}  // namespace vantrace
