// Pictures to measure with.
#pragma once

#include <cstdint>
#include <random>
#include <vector>

#include "platform/surface.h"

namespace vantrace {

inline constexpr int screenWidth = 1920;
inline constexpr int screenHeight = 1080;

/// The same one at each call.
inline Surface noise(int width, int height) {
    std::mt19937 random(4);
    std::vector<std::uint32_t> words(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    for (std::uint32_t& word : words) word = static_cast<std::uint32_t>(random());
    return {width, height, words};
}

}  // namespace vantrace
