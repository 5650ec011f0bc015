// Colours as the words of a surface, and back.
#pragma once

#include <cstdint>

#include "platform/colour.h"
#include "platform/surface_blend.h"

namespace vantrace::surface {

/// 0xBBGGRR to 0xFFRRGGBB.
inline std::uint32_t wordOf(Colour colour) {
    return opaque | ((colour & 0xFF) << 16) | (colour & 0xFF00) | ((colour >> 16) & 0xFF);
}

/// And the other way round.
inline Colour colourOf(std::uint32_t word) {
    return ((word & 0xFF) << 16) | (word & 0xFF00) | ((word >> 16) & 0xFF);
}

}  // namespace vantrace::surface
