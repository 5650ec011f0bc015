#include "mapview/paint/map_surfaces.h"

#include <string>

#include "core/config.h"
#include "core/error_label.h"
#include "core/files.h"
#include "core/labels.h"
#include "core/program_state.h"
#include "core/services.h"
#include "mapview/map_projection.h"

namespace vantrace {

MapSurfaces::MapSurfaces() : Alpha(alphaSize.width, alphaSize.height) {
    constexpr int finalPenWidth = 2;
    Alpha.setBackgroundColour(colours::black);
    Alpha.setFillColour(colours::white);
    Final.setBackgroundColour(colours::black);
    Final.setPenWidth(finalPenWidth);
}

void loadSprites(MapSurfaces& surfaces, Services& services, double devicePixelsPerPixel) {
    ErrorLabel label(services, labels::mapFormLoad);
    surfaces.load(services, label, devicePixelsPerPixel, "moon");
}

void loadMapPicture(MapSurfaces& surfaces, const ProgramState& state, Services& services) {
    ErrorLabel label(services, labels::mapFormLoad);
    surfaces.WorldNormal = Surface();
    label.step([&] {
        const std::string file = state.AppPath + GetConfig(services, settings::mapFile) + ".jpg";
        if (FileExists(file)) surfaces.WorldNormal = services.pictures.load(file);
    });
}

}  // namespace vantrace
