// The colours of the program.
#pragma once

#include <cstdint>

namespace vantrace {

/// A colour as 0xBBGGRR.
using Colour = std::uint32_t;

namespace colours {

inline constexpr Colour black = 0;
inline constexpr Colour white = 0xFFFFFF;
inline constexpr Colour green = 0x00FF00;
inline constexpr Colour blue = 0xFF0000;
inline constexpr Colour yellow = 0x00FFFF;
inline constexpr Colour orange = 0x0080FF;

}  // namespace colours

}  // namespace vantrace
