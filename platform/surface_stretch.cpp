#include "platform/surface_stretch.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace vantrace::surface {
namespace {

/// So many rows are merged at once.
constexpr int mergedTaps = 4;

/// The weights of one wanted pixel, before the source's edges are looked at.
struct Weights {
    std::int64_t first = 0;
    std::vector<double> values;
};

void average(double from, double to, Weights& weights) {
    weights.first = static_cast<std::int64_t>(std::floor(from));
    const auto end = std::max(static_cast<std::int64_t>(std::ceil(to)), weights.first + 1);
    weights.values.clear();
    for (std::int64_t pixel = weights.first; pixel < end; ++pixel) {
        const auto left = static_cast<double>(pixel);
        weights.values.push_back(std::min(to, left + 1) - std::max(from, left));
    }
}

void alongLine(double place, Weights& weights) {
    const double left = std::floor(place);
    weights.first = static_cast<std::int64_t>(left);
    weights.values = {left + 1 - place, place - left};
}

void alongCubic(double place, Weights& weights) {
    const double nearest = std::floor(place);
    const double t = place - nearest;
    weights.first = static_cast<std::int64_t>(nearest) - 1;
    weights.values = {((2 - t) * t - 1) * t / 2, ((3 * t - 5) * t * t + 2) / 2, ((4 - 3 * t) * t + 1) * t / 2,
                      (t - 1) * t * t / 2};
}

/// Lays what lies over the source's edges upon the edge pixels, drops what is too little to be seen, and
/// makes the sum 1.
void settle(Weights& weights, int sourceSize) {
    const std::int64_t lastPixel = sourceSize - 1;
    const std::int64_t first = std::clamp<std::int64_t>(weights.first, 0, lastPixel);
    const std::int64_t last = std::clamp<std::int64_t>(
        weights.first + static_cast<std::int64_t>(weights.values.size()) - 1, 0, lastPixel);
    std::vector<double> inside(static_cast<std::size_t>(last - first + 1));
    double sum = 0;
    for (std::size_t tap = 0; tap < weights.values.size(); ++tap) {
        const auto pixel =
            std::clamp<std::int64_t>(weights.first + static_cast<std::int64_t>(tap), 0, lastPixel);
        inside[static_cast<std::size_t>(pixel - first)] += weights.values[tap];
        sum += weights.values[tap];
    }
    weights.first = first;
    weights.values = std::move(inside);
    constexpr double unseen = 1e-6;
    for (double& value : weights.values) value = std::abs(value) < unseen * sum ? 0 : value / sum;
    while (weights.values.size() > 1 && weights.values.back() == 0) weights.values.pop_back();
    while (weights.values.size() > 1 && weights.values.front() == 0) {
        weights.values.erase(weights.values.begin());
        ++weights.first;
    }
}

StretchTable smoothTable(const StretchSpan& span, bool isCubic) {
    const double step = span.length / static_cast<double>(span.pixels);
    std::vector<Weights> all(static_cast<std::size_t>(span.end - span.begin));
    std::size_t taps = 1;
    for (std::int64_t pixel = span.begin; pixel < span.end; ++pixel) {
        Weights& weights = all[static_cast<std::size_t>(pixel - span.begin)];
        const double left = span.from + static_cast<double>(pixel) * step;
        if (step >= 1) {
            average(left, left + step, weights);
        } else if (isCubic) {
            alongCubic(left + step / 2 - 0.5, weights);
        } else {
            alongLine(left + step / 2 - 0.5, weights);
        }
        settle(weights, span.sourceSize);
        taps = std::max(taps, weights.values.size());
    }
    StretchTable table;
    table.taps = static_cast<int>(taps);
    for (const Weights& weights : all) {
        // A pixel with fewer starts earlier where it would end beyond the source.
        const auto first = std::min(static_cast<int>(weights.first), span.sourceSize - table.taps);
        table.first.push_back(first);
        const std::size_t base = table.weights.size();
        table.weights.resize(base + taps);
        const auto offset = static_cast<std::size_t>(weights.first - first);
        for (std::size_t tap = 0; tap < weights.values.size(); ++tap)
            table.weights[base + offset + tap] = static_cast<float>(weights.values[tap]);
    }
    return table;
}

StretchTable nearestTable(const StretchSpan& span) {
    const double step = span.length / static_cast<double>(span.pixels);
    StretchTable table;
    table.taps = 1;
    for (std::int64_t pixel = span.begin; pixel < span.end; ++pixel) {
        const double place = std::floor(span.from + (static_cast<double>(pixel) + 0.5) * step);
        table.first.push_back(static_cast<int>(std::clamp(place, 0.0, span.sourceSize - 1.0)));
        table.weights.push_back(1);
    }
    return table;
}

}  // namespace

StretchTable stretchTable(const StretchSpan& span, Sampling sampling) {
    if (sampling == Sampling::nearest) return nearestTable(span);
    return smoothTable(span, sampling == Sampling::cubic);
}

StretchedRows::StretchedRows(std::span<const std::uint32_t> words, int sourceWidth, StretchTable columns,
                             StretchTable rows, const Kernels& kernels)
    : m_words(words),
      m_sourceWidth(static_cast<std::size_t>(sourceWidth)),
      m_columns(std::move(columns)),
      m_rows(std::move(rows)),
      m_kernels(kernels),
      m_stride((m_columns.first.size() + 3) / 4 * 4),
      m_places(m_rows.taps > mergedTaps ? 2 : static_cast<std::size_t>(m_rows.taps) + 1),
      m_widened(m_stride * m_places),
      m_widenedRow(m_places, -1) {
    const auto [least, greatest] = std::minmax_element(m_columns.first.begin(), m_columns.first.end());
    const int begin = *least;
    m_sourceBegin = static_cast<std::size_t>(begin);
    m_sourcePair.resize(static_cast<std::size_t>(*greatest) + static_cast<std::size_t>(m_columns.taps) -
                        m_sourceBegin);
    for (int& first : m_columns.first) first -= begin;
}

const Pixel* StretchedRows::widened(int sourceRow) {
    const auto upperRow = static_cast<std::size_t>(sourceRow);
    Pixel* const upper = m_widened.data() + upperRow % m_places * m_stride;
    if (m_widenedRow[upperRow % m_places] == sourceRow) return upper;
    const std::size_t lowerRow = std::min(upperRow + 1, m_words.size() / m_sourceWidth - 1);
    Pixel* const lower = m_widened.data() + lowerRow % m_places * m_stride;
    const std::uint32_t* const words = m_words.data() + m_sourceBegin;
    m_kernels.readPair(words + upperRow * m_sourceWidth, words + lowerRow * m_sourceWidth,
                       m_sourcePair.size(), m_sourcePair.data());
    m_kernels.widen({m_sourcePair.data(), m_columns.first.data(), m_columns.weights.data(),
                     static_cast<std::size_t>(m_columns.taps), m_columns.first.size(), upper, lower});
    m_widenedRow[upperRow % m_places] = sourceRow;
    m_widenedRow[lowerRow % m_places] = static_cast<int>(lowerRow);
    return upper;
}

const Pixel* StretchedRows::summed(std::size_t row) {
    const auto taps = static_cast<std::size_t>(m_rows.taps);
    m_sum.assign(m_stride, Pixel{});
    for (std::size_t tap = 0; tap < taps; ++tap) {
        const float weight = m_rows.weights[row * taps + tap];
        if (weight == 0) continue;
        m_kernels.add({widened(m_rows.first[row] + static_cast<int>(tap)), weight, m_columns.first.size(),
                       m_sum.data()});
    }
    return m_sum.data();
}

void StretchedRows::write(std::size_t row, std::uint32_t* words) {
    std::array<const Pixel*, mergedTaps> sources{};
    if (m_rows.taps > mergedTaps) {
        const float weight = 1;
        sources[0] = summed(row);
        m_kernels.merge({sources.data(), &weight, 1, m_columns.first.size(), words});
        return;
    }
    const auto taps = static_cast<std::size_t>(m_rows.taps);
    for (std::size_t tap = 0; tap < taps; ++tap)
        sources[tap] = widened(m_rows.first[row] + static_cast<int>(tap));
    m_kernels.merge(
        {sources.data(), m_rows.weights.data() + row * taps, taps, m_columns.first.size(), words});
}

}  // namespace vantrace::surface
