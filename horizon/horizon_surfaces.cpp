#include "horizon/horizon_surfaces.h"

#include <string>

#include "core/config.h"
#include "core/error_label.h"
#include "core/files.h"
#include "core/labels.h"
#include "core/program_state.h"
#include "core/services.h"

namespace vantrace {

namespace {

Surface eveningSky() {
    constexpr int heights = 256;
    constexpr int columns = 2;
    Surface sky(columns, heights);
    for (int y = 0; y < heights; ++y) {
        // Lighter and warmer towards the horizon.
        const double low = static_cast<double>(y) / heights;
        const auto part = [&](double high, double change) {
            return static_cast<Colour>(high + change * low * low);
        };
        sky.setPenColour(part(6, 70) | part(12, 70) << 8U | part(34, 78) << 16U);
        sky.movePen(0, y);
        sky.lineTo(columns - 1, y);
    }
    return sky;
}

}  // namespace

HorizonSurfaces::HorizonSurfaces() : BackDrop(eveningSky()) {}

void loadSprites(HorizonSurfaces& surfaces, Services& services, double devicePixelsPerPixel) {
    ErrorLabel label(services, labels::horizonFormLoad);
    surfaces.load(services, label, devicePixelsPerPixel, "moon_large");
}

void loadLandscape(HorizonSurfaces& surfaces, const ProgramState& state, Services& services) {
    ErrorLabel label(services, labels::horizonFormLoad);
    label.step([&] {
        const std::string file = state.AppPath + GetConfig(services, settings::horizonFile) + ".jpg";
        if (FileExists(file)) surfaces.BackDrop = services.pictures.load(file);
        surfaces.keptLandscape.forget();
    });
}

}  // namespace vantrace
