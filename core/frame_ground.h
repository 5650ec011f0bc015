// What lies under all else in each frame of a view, and seldom changes.
#pragma once

#include <cstdint>

#include "platform/surface.h"

namespace vantrace {

/// A stretched picture, painted once and copied from then on: stretching it is most of the work of a frame.
class FrameGround {
  public:
    /// Paints all of `target` by `paint`, which tells whether it could; or as it was painted last, where that
    /// was from the same picture, in the same view (any number), for the same size and density. Tells what
    /// `paint` told.
    template <typename Paint>
    bool lay(Surface& target, const Surface& picture, int view, Paint&& paint) {
        if (isKept(target, picture, view)) {
            target.copy(m_kept);
            return true;
        }
        if (!paint()) return false;
        keep(target, picture, view);
        return true;
    }
    /// To be called when a picture has been drawn upon, or another one loaded.
    void forget() { m_words = nullptr; }

  private:
    bool isKept(const Surface& target, const Surface& picture, int view) const;
    void keep(const Surface& target, const Surface& picture, int view);

    Surface m_kept;
    const std::uint32_t* m_words = nullptr;
    int m_view = 0;
};

}  // namespace vantrace
