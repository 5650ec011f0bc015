#include "mapview/paint/repaint_map_screen.h"

#include "core/error_label.h"
#include "core/labels.h"
#include "core/services.h"
#include "core/window_place.h"
#include "mapview/paint/map_layers.h"
#include "mapview/paint/map_surfaces.h"
#include "mapview/world_view_form.h"

namespace vantrace {

void RepaintMapScreen(MapSurfaces& surfaces, const WorldViewForm& form, const MapState& map,
                      const ProgramState& state, Services& services) {
    ErrorLabel label(services, labels::mapviewRepaintMapScreen);
    const MapFrame frame{surfaces, form, map, state, services, label};
    surfaces.Final.setFont(mapFont());
    paintBackground(frame);
    label.step([&] { services.events.yield(); });
    paintObserver(frame);
    paintLocations(frame);
    paintSun(frame);
    paintShade(frame);
    paintMoon(frame);
    paintGroundTrack(frame);
    paintFootprint(frame);
    paintSatellites(frame);
    paintStatusLine(frame);
    paintBottomLine(frame);
    surfaces.Final.setFont(mapFont());
    label.step([&] { services.events.yield(); });
    storePlace(form.place, services, label);
}

}  // namespace vantrace
