// How two words of a surface are mixed: in one way, wherever something is painted half through.
#pragma once

#include <cstdint>

namespace vantrace::surface {

inline constexpr std::uint32_t opaque = 0xFF000000;

/// (alpha x source + (255 - alpha) x destination) / 255 for each of the four bytes, rounded to the nearest
/// (an odd divisor knows no halves). Alpha 0 to 255.
inline std::uint32_t blended(std::uint32_t source, std::uint32_t destination, std::uint32_t alpha) {
    // Two bytes at a time, each in 16 bits of its own. With t = n + 128, n / 255 rounded is (t + t / 256) /
    // 256 for every n up to 65535.
    constexpr std::uint32_t everyOther = 0x00FF00FF;
    constexpr std::uint32_t half = 0x00800080;
    const std::uint32_t rest = 255 - alpha;
    std::uint32_t even = (source & everyOther) * alpha + (destination & everyOther) * rest + half;
    std::uint32_t odd =
        ((source >> 8) & everyOther) * alpha + ((destination >> 8) & everyOther) * rest + half;
    even = ((even + ((even >> 8) & everyOther)) >> 8) & everyOther;
    odd = (odd + ((odd >> 8) & everyOther)) & ~everyOther;
    return even | odd;
}

}  // namespace vantrace::surface
