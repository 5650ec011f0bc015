// A frame of the world map without its window: the tracker's own routines at a time of the user's choice.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "app/command.h"
#include "app/fixed_clock.h"
#include "app/unsaved_settings.h"
#include "mapview/map_state.h"
#include "mapview/paint/map_surfaces.h"
#include "mapview/world_view_form.h"

namespace vantrace {

struct MapWish {
    /// A word of `Main.Tag`.
    std::string view;
    int width = 0;
    int height = 0;
    Instant time;
};

/// Reads the program folder and the settings and writes neither. Nothing is recorded. What is told to the
/// user goes to the error stream.
class MapPicture {
  public:
    MapPicture(const CommandContext& context, const MapWish& wish);

    /// The satellites of the map, at most as many as it can take, and which of them is the primary one,
    /// counted from 0; one that can't be placed is left out.
    void setSatellites(const std::vector<std::string>& names, std::size_t primary);
    /// The map's picture, and the places of locations.dat.
    void loadWorld();

    const Surface& paint();

    /// Whether nothing that was asked for is missing.
    bool isComplete() const { return m_isComplete; }

  private:
    ProgramState& state() { return m_context.program.state(); }
    void complain(const std::string& text);
    bool canBePlaced(const std::string& name);

    const CommandContext& m_context;
    MapWish m_wish;
    UnsavedSettings m_settings;
    FixedClock m_clock;
    /// Without a folder it writes nothing.
    ErrorLog m_errorLog;
    Services m_services;
    WorldViewForm m_form;
    /// Held apart for their size.
    std::unique_ptr<MapState> m_map;
    std::unique_ptr<MapSurfaces> m_surfaces;
    bool m_isComplete = true;
};

}  // namespace vantrace
