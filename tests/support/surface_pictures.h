// Surfaces to paint on, and from, for tests.
#pragma once

#include <cstdint>
#include <limits>
#include <random>
#include <span>
#include <vector>

#include "platform/surface.h"

namespace vantrace {

inline constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
inline constexpr double infinity = std::numeric_limits<double>::infinity();

inline std::size_t areaOf(int width, int height) {
    return static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
}

/// Random colours; the same for the same seed.
inline Surface noise(int deviceWidth, int deviceHeight, unsigned seed, double devicePixelsPerPixel = 1) {
    std::mt19937 random(seed);
    std::vector<std::uint32_t> words(areaOf(deviceWidth, deviceHeight));
    for (std::uint32_t& word : words) word = static_cast<std::uint32_t>(random());
    return {deviceWidth, deviceHeight, words, devicePixelsPerPixel};
}

inline std::vector<std::uint32_t> wordsOf(const Surface& surface) {
    return {surface.words().begin(), surface.words().end()};
}

/// A word by its place in device pixels.
inline std::uint32_t wordAt(const Surface& surface, int x, int y) {
    return surface.words()[static_cast<std::size_t>(y) * static_cast<std::size_t>(surface.deviceWidth()) +
                           static_cast<std::size_t>(x)];
}

/// A part of a surface, in device pixels.
inline std::vector<std::uint32_t> cut(const Surface& surface, int x, int y, int width, int height) {
    std::vector<std::uint32_t> words;
    for (int line = y; line < y + height; ++line)
        for (int column = x; column < x + width; ++column) words.push_back(wordAt(surface, column, line));
    return words;
}

inline unsigned channelOf(std::uint32_t word, unsigned channel) {
    return (word >> (8 * channel)) & 0xFF;
}

}  // namespace vantrace
