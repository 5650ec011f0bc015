// The brush of a surface: filling up to a border.
#include <cmath>
#include <cstdint>
#include <vector>

#include "platform/surface.h"
#include "platform/surface_colour.h"

namespace vantrace {
namespace {

/// Fills run by run; what is still to be looked at lies in a list, so that no maze is too deep.
class Filling {
  public:
    Filling(std::vector<std::uint32_t>& words, int width, int height, std::uint32_t border,
            std::uint32_t fill)
        : m_words(words),
          m_width(width),
          m_height(height),
          m_border(border),
          m_fill(fill),
          m_done(words.size()) {}

    bool isOpen(int x, int y) const {
        const std::size_t index = indexOf(x, y);
        return m_words[index] != m_border && m_done[index] == 0;
    }

    void run(int seedX, int seedY) {
        m_open.push_back({seedX, seedY});
        while (!m_open.empty()) {
            const Seed seed = m_open.back();
            m_open.pop_back();
            if (!isOpen(seed.x, seed.y)) continue;
            int first = seed.x;
            while (first > 0 && isOpen(first - 1, seed.y)) --first;
            int last = seed.x;
            while (last < m_width - 1 && isOpen(last + 1, seed.y)) ++last;
            for (int x = first; x <= last; ++x) {
                m_words[indexOf(x, seed.y)] = m_fill;
                m_done[indexOf(x, seed.y)] = 1;
            }
            if (seed.y > 0) lookAlong(first, last, seed.y - 1);
            if (seed.y < m_height - 1) lookAlong(first, last, seed.y + 1);
        }
    }

  private:
    struct Seed {
        int x;
        int y;
    };

    std::size_t indexOf(int x, int y) const {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(m_width) + static_cast<std::size_t>(x);
    }

    /// Notes one seed for each open run that touches the columns `first` to `last` of a row.
    void lookAlong(int first, int last, int y) {
        bool wasOpen = false;
        for (int x = first; x <= last; ++x) {
            const bool open = isOpen(x, y);
            if (open && !wasOpen) m_open.push_back({x, y});
            wasOpen = open;
        }
    }

    std::vector<std::uint32_t>& m_words;
    int m_width;
    int m_height;
    std::uint32_t m_border;
    std::uint32_t m_fill;
    /// What has been filled: the fill colour need not be the border's, and may lie there from before.
    std::vector<std::uint8_t> m_done;
    std::vector<Seed> m_open;
};

}  // namespace

void Surface::floodFill(int x, int y, Colour border) {
    const double deviceX = std::floor((x + 0.5) * m_ratio);
    const double deviceY = std::floor((y + 0.5) * m_ratio);
    if (!(deviceX >= 0 && deviceX < m_deviceWidth && deviceY >= 0 && deviceY < m_deviceHeight)) return;
    const auto seedX = static_cast<int>(deviceX);
    const auto seedY = static_cast<int>(deviceY);
    if (row(seedY)[seedX] == surface::wordOf(border)) return;
    Filling(m_words, m_deviceWidth, m_deviceHeight, surface::wordOf(border), surface::wordOf(m_fillColour))
        .run(seedX, seedY);
}

}  // namespace vantrace
