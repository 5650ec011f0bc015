// The landscape as it lies under a frame.
#pragma once

#include <cstdint>

#include "platform/surface.h"

namespace vantrace {

/// Stretched once and copied from then on: stretching it is most of the work of a frame.
class KeptLandscape {
  public:
    /// Paints all of `target` with the landscape. Without a landscape, or on a surface without a pixel,
    /// nothing is painted.
    void paint(Surface& target, const Surface& landscape);
    /// To be called when another landscape has been loaded.
    void forget() { m_words = nullptr; }

  private:
    Surface m_kept;
    /// Of the landscape that was stretched.
    const std::uint32_t* m_words = nullptr;
};

}  // namespace vantrace
