// A frame of the world map without its window.
#pragma once

#include <memory>

#include "app/pictures/picture_options.h"
#include "app/pictures/still_program.h"
#include "mapview/map_state.h"
#include "mapview/paint/map_surfaces.h"
#include "mapview/world_view_form.h"

namespace vantrace {

class MapPicture {
  public:
    /// The program outlives this.
    MapPicture(StillProgram& program, const PictureSize& size);

    /// The map's picture, and the places of locations.dat.
    void loadWorld();
    const Surface& paint();

  private:
    StillProgram& m_program;
    PictureSize m_size;
    WorldViewForm m_form;
    /// Held apart for their size.
    std::unique_ptr<MapState> m_map;
    std::unique_ptr<MapSurfaces> m_surfaces;
};

}  // namespace vantrace
