// The colours of the program.
#pragma once

#include <cstdint>

namespace vantrace {

/// A colour as 0xBBGGRR.
using Colour = std::uint32_t;

}  // namespace vantrace
