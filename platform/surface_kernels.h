// The inner loops of stretching and blending. Each exists twice, from one source: for any processor, and for
// those with registers of twice the width. Both give the same bits.
#pragma once

#include <cstddef>
#include <cstdint>

namespace vantrace::surface {

/// The four bytes of a word side by side, lowest first, each 0 to 255. Sums of weighted ones may lie outside.
struct Pixel {
    using Lanes [[gnu::vector_size(16)]] = float;
    Lanes lanes;
};

/// The same column of two rows.
struct PixelPair {
    Pixel upper;
    Pixel lower;
};

/// Sums over the columns of two rows: wanted column i is the sum of `taps` source columns from `first[i]` on,
/// with their weights.
struct WidenTask {
    const PixelPair* source;
    const int* first;
    const float* weights;
    std::size_t taps;
    std::size_t count;
    Pixel* upper;
    Pixel* lower;
};

/// Sums over rows: each word is the sum of the same column of 1 to 4 rows, with their weights, rounded to the
/// nearest and brought into 0 to 255. The rows are there up to the next multiple of four columns.
struct MergeTask {
    const Pixel* const* sources;
    const float* weights;
    std::size_t taps;
    std::size_t count;
    std::uint32_t* words;
};

/// For more rows than that: adds one to the sum of those before.
struct AddTask {
    const Pixel* source;
    float weight;
    std::size_t count;
    Pixel* sum;
};

struct Kernels {
    void (*readPair)(const std::uint32_t* upper, const std::uint32_t* lower, std::size_t count,
                     PixelPair* pairs);
    void (*widen)(const WidenTask& task);
    void (*merge)(const MergeTask& task);
    void (*add)(const AddTask& task);
    /// destination := (alpha x source + (255 - alpha) x destination) / 255 for each byte, rounded to the
    /// nearest (an odd divisor knows no halves). Alpha 0 to 255.
    void (*blendRow)(const std::uint32_t* source, std::uint32_t* destination, std::size_t count,
                     std::uint32_t alpha);
};

/// For any processor.
const Kernels& plainKernels();
/// The fastest that this processor can run.
const Kernels& bestKernels();

}  // namespace vantrace::surface
