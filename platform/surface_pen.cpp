// What the pen of a surface draws: dots, lines, circles and text.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <numeric>
#include <optional>
#include <stdexcept>

#include "platform/surface.h"
#include "platform/surface_colour.h"

namespace vantrace {
namespace {

/// Beyond it the ends of a line are pulled in. The greatest with which the products below fit in 64 bits.
constexpr double farthest = 1e9;

bool isPlace(double x, double y) {
    return std::abs(x) <= 1e300 && std::abs(y) <= 1e300;
}

/// The part of the line from `from` to `to` with |x| and |y| within `farthest` (Liang and Barsky 1984).
std::optional<std::array<Place, 2>> pulledIn(const Place& from, const Place& to) {
    const double dx = to.x - from.x;
    const double dy = to.y - from.y;
    double begin = 0;
    double end = 1;
    const std::array<std::array<double, 2>, 4> sides{{{-dx, from.x + farthest},
                                                      {dx, farthest - from.x},
                                                      {-dy, from.y + farthest},
                                                      {dy, farthest - from.y}}};
    for (const auto& [outward, distance] : sides) {
        if (outward == 0 && distance < 0) return std::nullopt;
        if (outward < 0) begin = std::max(begin, distance / outward);
        if (outward > 0) end = std::min(end, distance / outward);
    }
    if (begin > end) return std::nullopt;
    const auto at = [&](double part) {
        return Place{std::clamp(std::floor(from.x + part * dx + 0.5), -farthest, farthest),
                     std::clamp(std::floor(from.y + part * dy + 0.5), -farthest, farthest)};
    };
    // An end that is near enough stays what it is.
    const auto isNear = [](const Place& place) {
        return std::abs(place.x) <= farthest && std::abs(place.y) <= farthest;
    };
    return std::array{isNear(from) ? from : at(begin), isNear(to) ? to : at(end)};
}

/// One coordinate of a line, step by step: from `start` by `change` in `steps` steps, rounded to the nearest.
struct Track {
    std::int64_t start;
    std::int64_t change;
    std::int64_t steps;

    std::int64_t at(std::int64_t step) const {
        if (steps == 0) return start;
        const std::int64_t product = 2 * step * change + steps;
        const std::int64_t quotient = product / (2 * steps);
        return start + quotient - (product % (2 * steps) < 0 ? 1 : 0);
    }
    /// The first step from which on `isPassed` holds, or one more than there are.
    template <class IsPassed>
    std::int64_t firstStep(IsPassed isPassed) const {
        std::int64_t low = 0;
        std::int64_t high = steps + 1;
        while (low < high) {
            const std::int64_t middle = std::midpoint(low, high);
            if (isPassed(at(middle))) {
                high = middle;
            } else {
                low = middle + 1;
            }
        }
        return low;
    }
    /// Narrows the steps [begin, end) to those with a value from `low` to `high`. The values never turn back.
    void narrow(std::int64_t low, std::int64_t high, std::int64_t& begin, std::int64_t& end) const {
        using Value = std::int64_t;
        const bool rises = change >= 0;
        begin = std::max(begin, firstStep([&](Value value) { return rises ? value >= low : value <= high; }));
        end = std::min(end, firstStep([&](Value value) { return rises ? value > high : value < low; }));
    }
};

/// Lays a colour over a run of words, each as far as it is covered.
void cover(std::uint32_t* words, const std::uint8_t* coverage, int count, std::uint32_t word) {
    // Most of a line of text is uncovered.
    constexpr int together = 8;
    int at = 0;
    for (; at + together <= count; at += together) {
        std::uint64_t all = 0;
        std::memcpy(&all, coverage + at, sizeof all);
        if (all == 0) continue;
        for (int i = at; i < at + together; ++i) words[i] = surface::blended(word, words[i], coverage[i]);
    }
    for (; at < count; ++at) words[at] = surface::blended(word, words[at], coverage[at]);
}

/// By the brightness of the letters as the eye has it (the weights of ITU-R BT.709).
Colour haloColour(Colour letters) {
    constexpr double halfBright = 110;
    const double brightness =
        0.2126 * (letters & 0xFFU) + 0.7152 * (letters >> 8U & 0xFFU) + 0.0722 * (letters >> 16U & 0xFFU);
    return brightness < halfBright ? 0xFFFFFF : 0;
}

}  // namespace

void Surface::setPenWidth(int width) {
    m_penWidth = std::clamp(width, 1, maximumPenWidth);
    const auto size = static_cast<int>(std::lround(m_penWidth * m_ratio));
    const double radius = size / 2.0;
    m_dot.clear();
    for (int line = 0; line < size; ++line) {
        const double offset = line + 0.5 - radius;
        const double halfChord = std::sqrt(radius * radius - offset * offset);
        m_dot.push_back({static_cast<int>(std::ceil(radius - 0.5 - halfChord)),
                         static_cast<int>(std::floor(radius - 0.5 + halfChord))});
    }
}

double Surface::dotEdge(double place) const {
    // Halves go up on both sides of 0, so that what is drawn doesn't depend on where it lies.
    const int before = m_penWidth / 2;
    return std::floor((place - before) * m_ratio + 0.5);
}

void Surface::stamp(double left, double top, std::uint32_t word) {
    if (!(top < m_deviceHeight && top > -static_cast<double>(m_dot.size()))) return;
    int y = static_cast<int>(top);
    for (const Run& run : m_dot) {
        if (y >= 0 && y < m_deviceHeight) fillRun(left + run.first, left + run.last, y, word);
        ++y;
    }
}

void Surface::movePen(double x, double y) {
    if (isPlace(x, y)) m_pen = {x, y};
}

void Surface::plot(double x, double y) {
    if (!isPlace(x, y)) return;
    m_pen = {x, y};
    stamp(dotEdge(x), dotEdge(y), surface::wordOf(m_penColour));
}

void Surface::lineTo(double x, double y) {
    if (!isPlace(x, y)) return;
    const Place start{dotEdge(m_pen.x), dotEdge(m_pen.y)};
    m_pen = {x, y};
    const auto ends = pulledIn(start, {dotEdge(x), dotEdge(y)});
    if (!ends) return;
    const auto& [from, to] = *ends;
    const auto changeX = static_cast<std::int64_t>(to.x - from.x);
    const auto changeY = static_cast<std::int64_t>(to.y - from.y);
    const std::int64_t steps = std::max(std::abs(changeX), std::abs(changeY));
    const Track trackX{static_cast<std::int64_t>(from.x), changeX, steps};
    const Track trackY{static_cast<std::int64_t>(from.y), changeY, steps};
    // Only where the dot reaches the surface.
    const std::int64_t lowest = 1 - static_cast<std::int64_t>(m_dot.size());
    std::int64_t begin = 0;
    std::int64_t end = steps + 1;
    trackX.narrow(lowest, m_deviceWidth - 1, begin, end);
    trackY.narrow(lowest, m_deviceHeight - 1, begin, end);
    const std::uint32_t word = surface::wordOf(m_penColour);
    for (std::int64_t step = begin; step < end; ++step)
        stamp(static_cast<double>(trackX.at(step)), static_cast<double>(trackY.at(step)), word);
}

void Surface::circle(double x, double y, double radius) {
    if (!isPlace(x, y)) return;
    m_pen = {x, y};
    if (!(radius >= 0 && radius <= 1e300)) return;
    const double halfPen = static_cast<double>(m_dot.size()) / 2;
    const double middleX = dotEdge(x) + halfPen;
    const double middleY = dotEdge(y) + halfPen;
    const double outer = radius * m_ratio + halfPen;
    const double inner = radius * m_ratio - halfPen;
    const double top = std::max(0.0, std::ceil(middleY - 0.5 - outer));
    const double bottom = std::min(m_deviceHeight - 1.0, std::floor(middleY - 0.5 + outer));
    if (!(top <= bottom)) return;
    const std::uint32_t word = surface::wordOf(m_penColour);
    for (int line = static_cast<int>(top); line <= static_cast<int>(bottom); ++line) {
        const double offset = line + 0.5 - middleY;
        const auto halfChord = [offset](double r) { return std::sqrt((r - offset) * (r + offset)); };
        const double half = halfChord(outer);
        const double first = std::ceil(middleX - 0.5 - half);
        const double last = std::floor(middleX - 0.5 + half);
        if (inner <= std::abs(offset)) {
            fillRun(first, last, line, word);
            continue;
        }
        const double hole = halfChord(inner);
        const double holeFirst = std::floor(middleX - 0.5 - hole);
        const double holeLast = std::ceil(middleX - 0.5 + hole);
        fillRun(first, std::min(holeFirst, last), line, word);
        fillRun(std::max(holeLast, first), last, line, word);
    }
}

void Surface::lay(double left, double top, int bitmapWidth, int bitmapHeight, const std::uint8_t* bitmap,
                  std::uint32_t word) {
    if (!(left < m_deviceWidth && left > -bitmapWidth && top < m_deviceHeight && top > -bitmapHeight)) return;
    const auto x = static_cast<int>(left);
    const auto y = static_cast<int>(top);
    const int first = std::max(x, 0);
    const int end = std::min(x + bitmapWidth, m_deviceWidth);
    for (int line = std::max(y, 0); line < std::min(y + bitmapHeight, m_deviceHeight); ++line) {
        const std::ptrdiff_t pixel = static_cast<std::ptrdiff_t>(line - y) * bitmapWidth + (first - x);
        cover(row(line) + first, bitmap + pixel, end - first, word);
    }
}

void Surface::print(TextPainter& painter, std::string_view text, PenAfterText after) {
    const TextCoverage& mask = painter.coverageOf(m_font, text, m_ratio);
    const int haloWidth = mask.width + 2 * mask.haloMargin;
    const int haloHeight = mask.height + 2 * mask.haloMargin;
    const auto holds = [](const std::vector<std::uint8_t>& bitmap, int width, int height) {
        return width >= 0 && height >= 0 &&
               bitmap.size() == static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    };
    if (!holds(mask.coverage, mask.width, mask.height) ||
        !(mask.halo.empty() || holds(mask.halo, haloWidth, haloHeight))) {
        throw std::invalid_argument("the coverage of a text doesn't have the size that it tells");
    }
    const double left = std::floor(m_pen.x * m_ratio + 0.5) + mask.left;
    const double top = std::floor(m_pen.y * m_ratio + 0.5) + mask.top;
    if (after == PenAfterText::goesToEnd) movePen(m_pen.x + mask.advance / m_ratio, m_pen.y);
    if (!mask.halo.empty()) {
        lay(left - mask.haloMargin, top - mask.haloMargin, haloWidth, haloHeight, mask.halo.data(),
            surface::wordOf(haloColour(m_penColour)));
    }
    lay(left, top, mask.width, mask.height, mask.coverage.data(), surface::wordOf(m_penColour));
}

}  // namespace vantrace
