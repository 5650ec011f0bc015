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

void SpriteLoader::pair(const std::string& name, Surface& picture, Surface& mask) const {
    const auto load = [&](Surface& surface, const std::string& file) {
        surface = Surface();
        label.step([&] { surface = services.pictures.builtIn(file, devicePixelsPerPixel); });
    };
    load(picture, name);
    load(mask, name + "_mask");
}

void SpriteLoader::satellites(std::array<Surface, satellitePictureCount>& pictures,
                              std::array<Surface, satellitePictureCount>& masks) const {
    for (std::size_t i = 0; i < satellitePictureCount; ++i) {
        pair("satellite_" + std::to_string(i), pictures[i], masks[i]);
    }
}

}  // namespace vantrace
