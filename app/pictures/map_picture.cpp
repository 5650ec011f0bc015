#include "app/pictures/map_picture.h"

#include "app/program/arguments.h"
#include "catalogue/data_files.h"
#include "catalogue/locations.h"
#include "core/config.h"
#include "core/files.h"
#include "mapview/paint/repaint_map_screen.h"
#include "mapview/tables/ground_track.h"
#include "mapview/tables/gsatroutine.h"
#include "mapview/tables/sun_moon.h"

namespace vantrace {

MapPicture::MapPicture(StillProgram& program, const PictureSize& size)
    : m_program(program),
      m_size(size),
      m_map(std::make_unique<MapState>()),
      m_surfaces(std::make_unique<MapSurfaces>()) {}

void MapPicture::loadWorld() {
    Services& services = m_program.services();
    loadMapPicture(*m_surfaces, m_program.state(), services);
    if (m_surfaces->WorldNormal.width() == 0) {
        m_program.complain("the map's picture " + m_program.state().AppPath +
                           GetConfig(services, settings::mapFile) +
                           ".jpg can't be loaded; the ground stays black");
    }
    const std::string locations = dataFile(m_program.state(), locationsFile).string();
    if (!FileExists(locations)) return;
    for (const std::string& line : LoadLocations(m_program.state(), services.format)) {
        m_program.complain(locations + ": passed over " + inQuotes(line));
    }
}

const Surface& MapPicture::paint() {
    Services& services = m_program.services();
    loadSprites(*m_surfaces, services, 1);
    m_surfaces->Final.resize(m_size.width, m_size.height);
    if (m_program.state().PrimarySatIndex == 0) {
        // Nobody's track and footprint.
        services.settings.set(settings::showGroundtrack.key, "0");
        services.settings.set(settings::showFootprints.key, "0");
        for (std::string& line : m_form.RemoteStat) line.clear();
    } else {
        CalcGroundTrack(m_form, *m_map, m_program.state(), services);
    }
    CalcSunMoon(m_form, *m_map, m_program.state(), services);
    Gsatroutine(m_form, *m_map, m_program.state(), services);
    RepaintMapScreen(*m_surfaces, m_form, *m_map, m_program.state(), services);
    return m_surfaces->Final;
}

}  // namespace vantrace
