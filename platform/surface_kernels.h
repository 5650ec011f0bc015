// The inner loops of stretching and blending. Each exists twice: for any processor, and for those with
// registers of 32 bytes. All count in whole numbers, so both give the same bits.
#pragma once

#include <cstddef>
#include <cstdint>

namespace vantrace::surface {

/// Weights are whole numbers; this one is 1.
inline constexpr std::int16_t wholeWeight = 16384;

/// A byte of a word on its way through a change of size: 256 times what it is above 128. What overshoots the
/// range of a byte ends at the range of this one, which is just as wide.
using Lane = std::int16_t;
inline constexpr std::size_t lanesOfPixel = 4;

/// So many source columns are looked at together.
inline constexpr std::size_t columnTaps = 4;
/// The rows that are merged stretch so many pixels, or a multiple of it.
inline constexpr std::size_t pixelsTogether = 8;

/// Sums over the columns of two rows: wanted pixel i is the sum of `taps` source pixels from `first[i]` on,
/// with their weights. Taps are a multiple of columnTaps. The results have room for a multiple of
/// pixelsTogether.
struct WidenTask {
    const std::uint32_t* upperSource;
    const std::uint32_t* lowerSource;
    const int* first;
    const std::int16_t* weights;
    std::size_t taps;
    std::size_t count;
    Lane* upper;
    Lane* lower;
};

/// Sums over rows: each word is the sum of the same pixel of four rows, with their weights, rounded to the
/// nearest and brought into the range of bytes. Where `hasTwo`, the last two rows aren't looked at.
struct MergeTask {
    const Lane* rows[4];
    std::int16_t weights[4];
    bool hasTwo;
    std::size_t count;
    std::uint32_t* words;
};

/// For more rows than that: adds two of them to the sums of those before.
struct AddTask {
    const Lane* rows[2];
    std::int16_t weights[2];
    std::size_t count;
    std::int32_t* sums;
};

struct Kernels {
    void (*widen)(const WidenTask& task);
    void (*merge)(const MergeTask& task);
    void (*add)(const AddTask& task);
    /// destination := (alpha x source + (255 - alpha) x destination) / 255 for each byte, rounded to the
    /// nearest (an odd divisor knows no halves). Alpha 0 to 255.
    void (*blendRow)(const std::uint32_t* source, std::uint32_t* destination, std::size_t count,
                     std::uint32_t alpha);
    /// The same with one word for all of the source.
    void (*blendWord)(std::uint32_t source, std::uint32_t* destination, std::size_t count,
                      std::uint32_t alpha);
};

/// What the sums of rows are as words.
void toWords(const std::int32_t* sums, std::size_t count, std::uint32_t* words);

/// For any processor.
const Kernels& plainKernels();
/// The fastest that this processor can run.
const Kernels& bestKernels();

}  // namespace vantrace::surface
