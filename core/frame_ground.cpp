#include "core/frame_ground.h"

namespace vantrace {

bool FrameGround::isKept(const Surface& target, const Surface& picture, int view) const {
    return m_words != nullptr && m_words == picture.words().data() && m_view == view &&
           m_kept.hasSizeOf(target);
}

void FrameGround::keep(const Surface& target, const Surface& picture, int view) {
    m_kept = target;
    m_words = picture.words().data();
    m_view = view;
}

}  // namespace vantrace
