// A picture at another size, one row at a time.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "platform/surface.h"
#include "platform/surface_kernels.h"

namespace vantrace::surface {

/// One axis of the change of size, in pixels of the two sides.
struct StretchSpan {
    /// The part of the source, which may reach over its edges: those are repeated.
    double from;
    double length;
    int sourceSize;
    /// What it becomes, and which pixels of that are wanted: [begin, end) within 0 to `pixels`.
    std::int64_t pixels;
    std::int64_t begin;
    std::int64_t end;
};

/// Which source pixels make each wanted pixel, and how much of each. Weights of a pixel sum up to
/// wholeWeight.
struct StretchTable {
    /// The number of source pixels, the same for all; what isn't needed has the weight 0.
    int taps = 0;
    std::vector<int> first;
    /// `taps` for each wanted pixel.
    std::vector<std::int16_t> weights;
};

/// Shrinking takes the average over the area of the wanted pixel, but for `nearest`. Growing interpolates by
/// a straight line between two pixels, or by the cubic through four (Catmull and Rom 1974).
StretchTable stretchTable(const StretchSpan& span, Sampling sampling);

/// Wanted pixels of a row, [begin, end), that all are one word.
struct SolidRun {
    std::size_t begin;
    std::size_t end;
    std::uint32_t word;
};

/// The rows of a picture at another size. Source rows are widened two at a time, each once.
class StretchedRows {
  public:
    /// The words outlive this, `sourceWidth` of them make a row.
    StretchedRows(std::span<const std::uint32_t> words, int sourceWidth, StretchTable columns,
                  StretchTable rows, const Kernels& kernels = bestKernels());

    /// Writes one wanted row, counted from 0, as words. To be asked for in rising order, but none need be.
    void write(std::size_t row, std::uint32_t* words) { write(row, 0, m_columns.first.size(), words); }
    /// The same of some of its pixels, [begin, end).
    void write(std::size_t row, std::size_t begin, std::size_t end, std::uint32_t* words);

    /// Where a wanted row lies within long runs of one word in the source, as in a mask: there it needn't be
    /// written to be known. From left to right, valid until the next question.
    std::span<const SolidRun> solidRuns(std::size_t row);

  private:
    /// The words with rows so long that no pixel's source columns reach beyond one.
    void padSource(int sourceWidth);
    const Lane* widened(int sourceRow);
    void sumUp(std::size_t row);
    const std::vector<SolidRun>& runsOf(int sourceRow);

    std::span<const std::uint32_t> m_words;
    std::size_t m_sourceWidth;
    StretchTable m_columns;
    StretchTable m_rows;
    const Kernels& m_kernels;
    /// Of a picture that is only a few pixels wide.
    std::vector<std::uint32_t> m_padded;
    /// Lanes of a widened row.
    std::size_t m_stride;
    /// How many widened rows are kept: as many as one wanted row needs, and one ahead. Where that is more
    /// than four, hardly any is needed twice, and two are enough. Source row n lies in place n modulo their
    /// number.
    std::size_t m_places;
    std::vector<Lane> m_widened;
    std::vector<int> m_widenedRow;
    std::vector<std::int32_t> m_sums;
    /// Of source rows, in the same places as those that are widened; then of the wanted row.
    std::vector<std::vector<SolidRun>> m_runs;
    std::vector<int> m_runsRow;
    std::vector<SolidRun> m_solid;
    std::vector<SolidRun> m_solidBefore;
};

}  // namespace vantrace::surface
