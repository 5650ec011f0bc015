#include "core/sprites.h"

#include <cstdint>

#include "core/error_label.h"
#include "core/numbers.h"
#include "core/services.h"

namespace vantrace {

void paintSprite(Surface& target, const Place& corner, int size, const Surface& mask,
                 const Surface& picture) {
    const std::int32_t x = toInteger32(corner.x);
    const std::int32_t y = toInteger32(corner.y);
    target.blit(x, y, size, size, mask, 0, 0, RasterOperation::bitAnd);
    target.blit(x, y, size, size, picture, 0, 0, RasterOperation::bitOr);
}

void Sprites::load(Services& services, ErrorLabel& label, double devicePixelsPerPixel,
                   const std::string& moon) {
    const auto pair = [&](const std::string& name, Surface& picture, Surface& mask) {
        picture = Surface();
        mask = Surface();
        label.step([&] { picture = services.pictures.builtIn(name, devicePixelsPerPixel); });
        label.step([&] { mask = services.pictures.builtIn(name + "_mask", devicePixelsPerPixel); });
    };
    pair("sun", SunPic, SunMask);
    pair(moon, MoonPic, MoonMask);
    for (std::size_t i = 0; i < satellitePictureCount; ++i) {
        pair("satellite_" + std::to_string(i), SatPic[i], SatMask[i]);
    }
}

}  // namespace vantrace
