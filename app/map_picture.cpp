#include "app/map_picture.h"

#include <algorithm>

#include "app/arguments.h"
#include "catalogue/locations.h"
#include "core/config.h"
#include "core/files.h"
#include "core/numbers.h"
#include "mapview/tables/ground_track.h"
#include "mapview/tables/gsatroutine.h"
#include "mapview/paint/repaint_map_screen.h"
#include "mapview/tables/sun_moon.h"
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

Services withClockAndSettings(const Services& services, Clock& clock, SettingsStore& settings,
                              ErrorLog& errorLog) {
    return {clock,
            services.events,
            settings,
            services.speech,
            services.dialogs,
            services.desktop,
            services.displayMode,
            services.process,
            services.capture,
            services.pictures,
            services.textPainter,
            services.printer,
            errorLog,
            services.windows,
            services.format};
}

}  // namespace

MapPicture::MapPicture(const CommandContext& context, const MapWish& wish)
    : m_context(context),
      m_wish(wish),
      m_settings(context.program.services().settings),
      m_clock(readingAt(wish.time)),
      m_errorLog(m_clock, context.program.services().format),
      m_services(withClockAndSettings(context.program.services(), m_clock, m_settings, m_errorLog)),
      m_map(std::make_unique<MapState>()),
      m_surfaces(std::make_unique<MapSurfaces>()) {
    m_services.settings.set(settings::recPrimary.key, "0");
    m_services.settings.set(settings::recWxsat.key, "0");
    const std::optional<std::string> site = context.line.value("site");
    state().OrbitEngine = engineAt(m_clock, state().AppPath);
    context.program.setSite(site ? parseSite(*site) : siteOfSettings(m_services));
    state().MainTag = wish.view;
    state().CompatibilityMode = numberValue(GetConfig(m_services, settings::compatibility)) == 1;
}

void MapPicture::complain(const std::string& text) {
    m_context.console().complain(text);
    m_isComplete = false;
}

bool MapPicture::canBePlaced(const std::string& name) {
    try {
        state().OrbitEngine->track(name, m_wish.time);
        return true;
    } catch (const EngineError& failure) {
        complain(failure.what());
        return false;
    }
}

void MapPicture::setSatellites(const std::vector<std::string>& names, std::size_t primary) {
    constexpr std::size_t most = decltype(ProgramState::Favourites)::bound;
    state().FavouriteCount = 0;
    state().PrimarySatIndex = 0;
    for (std::size_t i = 0; i < names.size(); ++i) {
        // The primary one always finds room.
        const auto count = static_cast<std::size_t>(state().FavouriteCount);
        const std::size_t room = i < primary && primary < names.size() ? most - 1 : most;
        if (count >= room) {
            complain("the map takes " + std::to_string(most) + " satellites; " + inQuotes(names[i]) +
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

void MapPicture::loadWorld() {
    loadMapPicture(*m_surfaces, state(), m_services);
    if (m_surfaces->WorldNormal.width() == 0) {
        complain("the map's picture " + state().AppPath + GetConfig(m_services, settings::mapFile) +
                 ".jpg can't be loaded; the ground stays black");
    }
    const std::string locations = state().AppPath + "locations.dat";
    if (!FileExists(locations)) return;
    for (const std::string& line : LoadLocations(state(), m_services.format)) {
        complain(locations + ": passed over " + inQuotes(line));
    }
}

const Surface& MapPicture::paint() {
    loadSprites(*m_surfaces, m_services, 1);
    m_surfaces->Final.resize(m_wish.width, m_wish.height);
    if (state().PrimarySatIndex == 0) {
        // Nobody's track and footprint.
        m_services.settings.set(settings::showGroundtrack.key, "0");
        m_services.settings.set(settings::showFootprints.key, "0");
        for (std::string& line : m_form.RemoteStat) line.clear();
    } else {
        CalcGroundTrack(m_form, *m_map, state(), m_services);
    }
    CalcSunMoon(m_form, *m_map, state(), m_services);
    Gsatroutine(m_form, *m_map, state(), m_services);
    RepaintMapScreen(*m_surfaces, m_form, *m_map, state(), m_services);
    return m_surfaces->Final;
}

}  // namespace vantrace
