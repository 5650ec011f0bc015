#include "horizon/kept_landscape.h"

namespace vantrace {

void KeptLandscape::paint(Surface& target, const Surface& landscape) {
    const std::uint32_t* const words = landscape.words().data();
    if (m_words != nullptr && m_words == words && m_kept.hasSizeOf(target)) return target.copy(m_kept);
    const Area all(0, 0, target.width(), target.height());
    m_words = nullptr;
    if (!target.stretch(all, landscape, Area(0, 0, landscape.width(), landscape.height()))) return;
    m_kept = target;
    m_words = words;
}

}  // namespace vantrace
