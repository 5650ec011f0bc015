#include "platform/surface_stretch.h"

#include <algorithm>
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
/// makes the sum 1. `inside` is scratch.
void settle(Weights& weights, int sourceSize, std::vector<double>& inside) {
    const std::int64_t lastPixel = sourceSize - 1;
    const std::int64_t first = std::clamp<std::int64_t>(weights.first, 0, lastPixel);
    const std::int64_t last = std::clamp<std::int64_t>(
        weights.first + static_cast<std::int64_t>(weights.values.size()) - 1, 0, lastPixel);
    inside.assign(static_cast<std::size_t>(last - first + 1), 0);
    double sum = 0;
    for (std::size_t tap = 0; tap < weights.values.size(); ++tap) {
        const auto pixel =
            std::clamp<std::int64_t>(weights.first + static_cast<std::int64_t>(tap), 0, lastPixel);
        inside[static_cast<std::size_t>(pixel - first)] += weights.values[tap];
        sum += weights.values[tap];
    }
    weights.first = first;
    weights.values.swap(inside);
    constexpr double unseen = 1e-6;
    for (double& value : weights.values) value = std::abs(value) < unseen * sum ? 0 : value / sum;
    while (weights.values.size() > 1 && weights.values.back() == 0) weights.values.pop_back();
    while (weights.values.size() > 1 && weights.values.front() == 0) {
        weights.values.erase(weights.values.begin());
        ++weights.first;
    }
}

/// The weights of all wanted pixels, one pixel's behind the other's.
struct AllWeights {
    std::vector<std::int64_t> first;
    std::vector<std::size_t> begin{0};
    std::vector<double> values;

    void add(const Weights& weights) {
        first.push_back(weights.first);
        values.insert(values.end(), weights.values.begin(), weights.values.end());
        begin.push_back(values.size());
    }
    std::size_t taps(std::size_t pixel) const { return begin[pixel + 1] - begin[pixel]; }
};

/// As whole numbers, all pixels with as many taps as the one that has most.
StretchTable wholeNumbers(const AllWeights& all, int sourceSize) {
    const std::size_t pixels = all.first.size();
    std::size_t taps = 1;
    for (std::size_t pixel = 0; pixel < pixels; ++pixel) taps = std::max(taps, all.taps(pixel));
    StretchTable table;
    table.taps = static_cast<int>(taps);
    table.weights.resize(pixels * taps);
    for (std::size_t pixel = 0; pixel < pixels; ++pixel) {
        // A pixel with fewer starts earlier where it would end beyond the source.
        const auto first = std::min(static_cast<int>(all.first[pixel]), sourceSize - table.taps);
        table.first.push_back(first);
        std::int16_t* weight = table.weights.data() + pixel * taps + (all.first[pixel] - first);
        // What is lost by rounding goes to the next, so that the sum is right.
        double sum = 0;
        long before = 0;
        for (std::size_t value = all.begin[pixel]; value < all.begin[pixel + 1]; ++value, ++weight) {
            sum += all.values[value];
            const long rounded = std::lround(sum * wholeWeight);
            *weight = static_cast<std::int16_t>(rounded - before);
            before = rounded;
        }
    }
    return table;
}

StretchTable smoothTable(const StretchSpan& span, bool isCubic) {
    const double step = span.length / static_cast<double>(span.pixels);
    AllWeights all;
    Weights weights;
    std::vector<double> scratch;
    for (std::int64_t pixel = span.begin; pixel < span.end; ++pixel) {
        const double left = span.from + static_cast<double>(pixel) * step;
        if (step >= 1) {
            average(left, left + step, weights);
        } else if (isCubic) {
            alongCubic(left + step / 2 - 0.5, weights);
        } else {
            alongLine(left + step / 2 - 0.5, weights);
        }
        settle(weights, span.sourceSize, scratch);
        all.add(weights);
    }
    return wholeNumbers(all, span.sourceSize);
}

StretchTable nearestTable(const StretchSpan& span) {
    const double step = span.length / static_cast<double>(span.pixels);
    StretchTable table;
    table.taps = 1;
    for (std::int64_t pixel = span.begin; pixel < span.end; ++pixel) {
        const double place = std::floor(span.from + (static_cast<double>(pixel) + 0.5) * step);
        table.first.push_back(static_cast<int>(std::clamp(place, 0.0, span.sourceSize - 1.0)));
        table.weights.push_back(wholeWeight);
    }
    return table;
}

/// Gives every pixel a number of taps that the kernels take, where the source is wide enough within it.
void padColumns(StretchTable& table, int sourceWidth) {
    const auto taps = static_cast<std::size_t>(table.taps);
    const std::size_t wanted = (taps + columnTaps - 1) / columnTaps * columnTaps;
    if (wanted == taps) return;
    const int lastFirst = std::max(0, sourceWidth - static_cast<int>(wanted));
    std::vector<std::int16_t> weights(table.first.size() * wanted);
    for (std::size_t pixel = 0; pixel < table.first.size(); ++pixel) {
        const int first = std::min(table.first[pixel], lastFirst);
        std::copy_n(table.weights.data() + pixel * taps, taps,
                    weights.data() + pixel * wanted + (table.first[pixel] - first));
        table.first[pixel] = first;
    }
    table.weights = std::move(weights);
    table.taps = static_cast<int>(wanted);
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
      m_stride((m_columns.first.size() + pixelsTogether - 1) / pixelsTogether * pixelsTogether *
               lanesOfPixel),
      m_places(m_rows.taps > mergedTaps ? 2 : static_cast<std::size_t>(m_rows.taps) + 1),
      // Merging starts anywhere in a row, and takes some pixels together.
      m_widened(m_stride * m_places + pixelsTogether * lanesOfPixel),
      m_widenedRow(m_places, -1),
      m_runs(m_places),
      m_runsRow(m_places, -1) {
    padColumns(m_columns, sourceWidth);
    padSource(sourceWidth);
}

void StretchedRows::padSource(int sourceWidth) {
    if (sourceWidth >= m_columns.taps) return;
    const std::size_t rows = m_words.size() / m_sourceWidth;
    const auto width = static_cast<std::size_t>(m_columns.taps);
    m_padded.resize(rows * width);
    for (std::size_t row = 0; row < rows; ++row) {
        std::copy_n(m_words.data() + row * m_sourceWidth, m_sourceWidth, m_padded.data() + row * width);
    }
    m_words = m_padded;
    m_sourceWidth = width;
}

const Lane* StretchedRows::widened(int sourceRow) {
    const auto upperRow = static_cast<std::size_t>(sourceRow);
    Lane* const upper = m_widened.data() + upperRow % m_places * m_stride;
    if (m_widenedRow[upperRow % m_places] == sourceRow) return upper;
    const std::size_t lowerRow = std::min(upperRow + 1, m_words.size() / m_sourceWidth - 1);
    Lane* const lower = m_widened.data() + lowerRow % m_places * m_stride;
    m_kernels.widen({m_words.data() + upperRow * m_sourceWidth, m_words.data() + lowerRow * m_sourceWidth,
                     m_columns.first.data(), m_columns.weights.data(),
                     static_cast<std::size_t>(m_columns.taps), m_columns.first.size(), upper, lower});
    m_widenedRow[upperRow % m_places] = sourceRow;
    m_widenedRow[lowerRow % m_places] = static_cast<int>(lowerRow);
    return upper;
}

void StretchedRows::sumUp(std::size_t row) {
    const auto taps = static_cast<std::size_t>(m_rows.taps);
    const std::int16_t* const weights = m_rows.weights.data() + row * taps;
    m_sums.assign(m_stride, 0);
    for (std::size_t tap = 0; tap < taps; tap += 2) {
        const bool hasTwo = tap + 1 < taps;
        const int sourceRow = m_rows.first[row] + static_cast<int>(tap);
        // Both are made together: the second alone would bring the row behind it into the first one's place.
        const auto isHeld = [&](int each) {
            return m_widenedRow[static_cast<std::size_t>(each) % m_places] == each;
        };
        if (hasTwo && !isHeld(sourceRow + 1))
            m_widenedRow[static_cast<std::size_t>(sourceRow) % m_places] = -1;
        const Lane* const first = widened(sourceRow);
        const Lane* const second = hasTwo ? widened(sourceRow + 1) : first;
        const std::int16_t secondWeight = hasTwo ? weights[tap + 1] : std::int16_t{0};
        m_kernels.add({{first, second}, {weights[tap], secondWeight}, m_columns.first.size(), m_sums.data()});
    }
}

void StretchedRows::write(std::size_t row, std::size_t begin, std::size_t end, std::uint32_t* words) {
    if (m_rows.taps > mergedTaps) {
        sumUp(row);
        toWords(m_sums.data() + begin * lanesOfPixel, end - begin, words);
        return;
    }
    const auto taps = static_cast<std::size_t>(m_rows.taps);
    MergeTask task{{}, {}, taps <= 2, end - begin, words};
    for (std::size_t tap = 0; tap < taps; ++tap) {
        task.rows[tap] = widened(m_rows.first[row] + static_cast<int>(tap)) + begin * lanesOfPixel;
        task.weights[tap] = m_rows.weights[row * taps + tap];
    }
    // The rest has the weight 0.
    for (std::size_t tap = taps; tap < mergedTaps; ++tap) task.rows[tap] = task.rows[0];
    m_kernels.merge(task);
}

const std::vector<SolidRun>& StretchedRows::runsOf(int sourceRow) {
    const std::size_t place = static_cast<std::size_t>(sourceRow) % m_places;
    std::vector<SolidRun>& runs = m_runs[place];
    if (m_runsRow[place] == sourceRow) return runs;
    m_runsRow[place] = sourceRow;
    runs.clear();
    constexpr std::ptrdiff_t leastLength = 16;
    const std::uint32_t* const row = m_words.data() + static_cast<std::size_t>(sourceRow) * m_sourceWidth;
    const std::uint32_t* const rowEnd = row + m_sourceWidth;
    for (const std::uint32_t* run = row; run != rowEnd;) {
        const std::uint32_t* const runEnd =
            std::find_if(run, rowEnd, [word = *run](std::uint32_t each) { return each != word; });
        if (runEnd - run >= leastLength) {
            // The wanted pixels with all their columns in the run.
            const auto& first = m_columns.first;
            const auto begin = std::ranges::lower_bound(first, static_cast<int>(run - row));
            const auto end = std::ranges::upper_bound(first, static_cast<int>(runEnd - row) - m_columns.taps);
            if (begin < end) {
                runs.push_back({static_cast<std::size_t>(begin - first.begin()),
                                static_cast<std::size_t>(end - first.begin()), *run});
            }
        }
        run = runEnd;
    }
    return runs;
}

std::span<const SolidRun> StretchedRows::solidRuns(std::size_t row) {
    m_solid.clear();
    if (m_rows.taps > mergedTaps) return m_solid;
    m_solid = runsOf(m_rows.first[row]);
    for (int tap = 1; tap < m_rows.taps && !m_solid.empty(); ++tap) {
        m_solid.swap(m_solidBefore);
        m_solid.clear();
        const std::vector<SolidRun>& runs = runsOf(m_rows.first[row] + tap);
        auto run = runs.begin();
        for (const SolidRun& before : m_solidBefore) {
            while (run != runs.end() && run->end <= before.begin) ++run;
            for (auto each = run; each != runs.end() && each->begin < before.end; ++each) {
                if (each->word != before.word) continue;
                m_solid.push_back(
                    {std::max(before.begin, each->begin), std::min(before.end, each->end), each->word});
            }
        }
    }
    return m_solid;
}

}  // namespace vantrace::surface
