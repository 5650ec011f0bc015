// Pictures upon a surface: combined bit by bit, stretched, blended.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "platform/surface.h"
#include "platform/surface_kernels.h"
#include "platform/surface_stretch.h"

namespace vantrace {
namespace {

/// One axis of a blit: for each device pixel of the destination from `begin` on, the source's.
struct BlitAxis {
    int begin = 0;
    std::vector<int> source;
};

BlitAxis blitAxis(int to, int size, double ratio, int toSize, int from, double sourceRatio, int sourceSize) {
    // The edge alone is rounded to the device, so that a sprite has the same size wherever it is.
    const double edge = std::floor(to * ratio + 0.5);
    const double length = std::floor(size * ratio + 0.5);
    const double begin = std::max(edge, 0.0);
    const double end = std::min(edge + length, static_cast<double>(toSize));
    BlitAxis axis;
    if (begin < end) axis.source.reserve(static_cast<std::size_t>(end - begin));
    for (double pixel = begin; pixel < end; ++pixel) {
        const double place = std::floor((from + (pixel - edge + 0.5) / ratio) * sourceRatio);
        if (!(place >= 0 && place < sourceSize)) continue;
        // Those off the source lie before the first and after the last.
        if (axis.source.empty()) axis.begin = static_cast<int>(pixel);
        axis.source.push_back(static_cast<int>(place));
    }
    return axis;
}

/// Brings a row of words upon another.
template <class Combine>
void combineRow(std::uint32_t* words, const std::uint32_t* source, const std::vector<int>& columns,
                Combine combine) {
    const std::size_t count = columns.size();
    const auto first = static_cast<std::size_t>(columns.front());
    if (static_cast<std::size_t>(columns.back()) - first == count - 1) {
        // One after the other.
        for (std::size_t x = 0; x < count; ++x) words[x] = combine(words[x], source[first + x]);
        return;
    }
    for (std::size_t x = 0; x < count; ++x) words[x] = combine(words[x], source[columns[x]]);
}

/// One axis of a stretch, or nothing where it isn't sound. `place` is the first pixel that is wanted, on the
/// destination.
struct StretchAxis {
    surface::StretchSpan span;
    int place;
};

std::optional<StretchAxis> stretchAxis(double to, double length, double ratio, int toSize, double from,
                                       double sourceLength, double sourceRatio, int sourceSize) {
    constexpr double farthest = 1e9;
    const auto isSound = [](double start, double size) {
        return std::abs(start) <= farthest && size > 0 && size <= farthest;
    };
    if (!isSound(to, length) || !isSound(from, sourceLength) || sourceSize == 0) return std::nullopt;
    const double excess = sourceRatio;
    if (from * sourceRatio < -excess || (from + sourceLength) * sourceRatio > sourceSize + excess)
        return std::nullopt;

    const auto first = static_cast<std::int64_t>(std::floor(to * ratio + 0.5));
    const auto end = static_cast<std::int64_t>(std::floor((to + length) * ratio + 0.5));
    const auto place = std::clamp<std::int64_t>(first, 0, toSize);
    const auto placeEnd = std::clamp<std::int64_t>(end, place, toSize);
    return StretchAxis{{from * sourceRatio, sourceLength * sourceRatio, sourceSize, end - first,
                        place - first, placeEnd - first},
                       static_cast<int>(place)};
}

}  // namespace

void Surface::blit(int x, int y, int width, int height, const Surface& source, int sourceX, int sourceY,
                   RasterOperation operation) {
    if (&source == this) {
        // The source is what was there before.
        const Surface before = *this;
        blit(x, y, width, height, before, sourceX, sourceY, operation);
        return;
    }
    const BlitAxis columns =
        blitAxis(x, width, m_ratio, m_deviceWidth, sourceX, source.m_ratio, source.m_deviceWidth);
    const BlitAxis rows =
        blitAxis(y, height, m_ratio, m_deviceHeight, sourceY, source.m_ratio, source.m_deviceHeight);
    if (columns.source.empty()) return;
    std::uint32_t* words = m_words.data() + columns.begin;
    words += static_cast<std::ptrdiff_t>(rows.begin) * m_deviceWidth;
    for (const int sourceRow : rows.source) {
        const std::uint32_t* const from = source.row(sourceRow);
        if (operation == RasterOperation::bitAnd) {
            combineRow(words, from, columns.source, std::bit_and<>());
        } else {
            combineRow(words, from, columns.source, std::bit_or<>());
        }
        words += m_deviceWidth;
    }
}

/// Hands the rows of the scaled picture that lie on this surface to `paintRow(rows, row, words)`: it lets
/// `rows` write the row, and brings it upon the words.
template <class PaintRow>
bool Surface::scale(const Area& destination, const Surface& source, const Area& sourceArea, Sampling sampling,
                    PaintRow paintRow) {
    const auto x = stretchAxis(destination.x, destination.width, m_ratio, m_deviceWidth, sourceArea.x,
                               sourceArea.width, source.m_ratio, source.m_deviceWidth);
    const auto y = stretchAxis(destination.y, destination.height, m_ratio, m_deviceHeight, sourceArea.y,
                               sourceArea.height, source.m_ratio, source.m_deviceHeight);
    if (!x || !y) return false;
    const auto columns = static_cast<std::size_t>(x->span.end - x->span.begin);
    const auto lines = static_cast<std::size_t>(y->span.end - y->span.begin);
    if (columns == 0 || lines == 0) return true;
    surface::StretchedRows rows(source.m_words, source.m_deviceWidth,
                                surface::stretchTable(x->span, sampling),
                                surface::stretchTable(y->span, sampling));
    std::uint32_t* words = row(y->place) + x->place;
    for (std::size_t line = 0; line < lines; ++line, words += m_deviceWidth)
        paintRow(rows, line, std::span(words, columns));
    return true;
}

bool Surface::stretch(const Area& destination, const Surface& source, const Area& sourceArea,
                      Sampling sampling) {
    if (&source == this) return stretch(destination, Surface(source), sourceArea, sampling);
    return scale(destination, source, sourceArea, sampling,
                 [](surface::StretchedRows& rows, std::size_t line, std::span<std::uint32_t> words) {
                     rows.write(line, words.data());
                 });
}

bool Surface::blend(const Area& destination, const Surface& source, const Area& sourceArea, int alpha,
                    Sampling sampling) {
    if (alpha < 0 || alpha > 255) return false;
    if (&source == this) return blend(destination, Surface(source), sourceArea, alpha, sampling);
    std::vector<std::uint32_t> scaled(static_cast<std::size_t>(m_deviceWidth));
    const auto weight = static_cast<std::uint32_t>(alpha);
    const surface::Kernels& kernels = surface::bestKernels();
    return scale(destination, source, sourceArea, sampling,
                 [&](surface::StretchedRows& rows, std::size_t line, std::span<std::uint32_t> words) {
                     const auto blendMixed = [&](std::size_t begin, std::size_t end) {
                         if (begin == end) return;
                         rows.write(line, begin, end, scaled.data());
                         kernels.blendRow(scaled.data(), words.data() + begin, end - begin, weight);
                     };
                     std::size_t done = 0;
                     for (const surface::SolidRun& run : rows.solidRuns(line)) {
                         blendMixed(done, run.begin);
                         kernels.blendWord(run.word, words.data() + run.begin, run.end - run.begin, weight);
                         done = run.end;
                     }
                     blendMixed(done, words.size());
                 });
}

}  // namespace vantrace
