#include "platform/surface_kernels.h"

#include <algorithm>
#include <cstring>

#if defined(__x86_64__)
#include <immintrin.h>
#endif

#include "platform/surface_blend.h"

// What is marked so becomes part of the function that calls it, and is compiled for that one's processor.
#define VANTRACE_BODY [[gnu::always_inline]] inline
#if defined(__x86_64__)
#define VANTRACE_WIDE [[gnu::target("avx2")]]
#endif

namespace vantrace::surface {
namespace {

// A byte is made a lane in two steps: 8 bits to the left, and 14 more by its weights, of which 14 are taken
// back. The sums of rows have the 14 bits of their weights again.
constexpr int byteBits = 8;
constexpr int weightBits = 14;
constexpr int sumBits = byteBits + weightBits;
constexpr std::int32_t half(int bits) {
    return std::int32_t{1} << (bits - 1);
}
static_assert(wholeWeight == 1 << weightBits);

void widenRow(const WidenTask& task, const std::uint32_t* source, Lane* lanes) {
    constexpr std::int32_t middle = 128;
    const std::int16_t* weights = task.weights;
    for (std::size_t i = 0; i < task.count; ++i, weights += task.taps, lanes += lanesOfPixel) {
        std::int32_t sums[lanesOfPixel]{};
        for (std::size_t tap = 0; tap < task.taps; ++tap) {
            const std::uint32_t word = source[static_cast<std::size_t>(task.first[i]) + tap];
            for (unsigned lane = 0; lane < lanesOfPixel; ++lane) {
                const auto byte = static_cast<std::int32_t>((word >> (8 * lane)) & 0xFF);
                sums[lane] += (byte - middle) * (1 << byteBits) * weights[tap];
            }
        }
        for (unsigned lane = 0; lane < lanesOfPixel; ++lane) {
            const std::int32_t value = (sums[lane] + half(weightBits)) >> weightBits;
            lanes[lane] = static_cast<Lane>(std::clamp<std::int32_t>(value, INT16_MIN, INT16_MAX));
        }
    }
}

void widen(const WidenTask& task) {
    widenRow(task, task.upperSource, task.upper);
    widenRow(task, task.lowerSource, task.lower);
}

std::uint32_t toWord(const std::int32_t* sums) {
    std::uint32_t word = 0;
    for (unsigned lane = 0; lane < lanesOfPixel; ++lane) {
        const std::int32_t byte = ((sums[lane] + half(sumBits)) >> sumBits) + 128;
        word |= static_cast<std::uint32_t>(std::clamp(byte, 0, 255)) << (8 * lane);
    }
    return word;
}

void merge(const MergeTask& task) {
    const std::size_t taps = task.hasTwo ? 2 : 4;
    for (std::size_t x = 0; x < task.count; ++x) {
        std::int32_t sums[lanesOfPixel]{};
        for (std::size_t tap = 0; tap < taps; ++tap) {
            const Lane* const lanes = task.rows[tap] + x * lanesOfPixel;
            for (std::size_t lane = 0; lane < lanesOfPixel; ++lane)
                sums[lane] += lanes[lane] * task.weights[tap];
        }
        task.words[x] = toWord(sums);
    }
}

VANTRACE_BODY void addBody(const AddTask& task) {
    const std::int32_t first = task.weights[0];
    const std::int32_t second = task.weights[1];
    for (std::size_t lane = 0; lane < task.count * lanesOfPixel; ++lane)
        task.sums[lane] += task.rows[0][lane] * first + task.rows[1][lane] * second;
}

VANTRACE_BODY void blendRowBody(const std::uint32_t* source, std::uint32_t* destination, std::size_t count,
                                std::uint32_t alpha) {
    // As blended(), with more words at a time.
    using Lanes [[gnu::vector_size(32), gnu::aligned(16)]] = std::uint16_t;
    constexpr std::size_t together = sizeof(Lanes) / sizeof(std::uint32_t);
    const Lanes weight = Lanes{} + static_cast<std::uint16_t>(alpha);
    const Lanes rest = Lanes{} + static_cast<std::uint16_t>(255 - alpha);
    std::size_t x = 0;
    for (; x + together <= count; x += together) {
        Lanes from;
        Lanes to;
        std::memcpy(&from, source + x, sizeof from);
        std::memcpy(&to, destination + x, sizeof to);
        Lanes even = (from & 0xFF) * weight + (to & 0xFF) * rest + 128;
        Lanes odd = (from >> 8) * weight + (to >> 8) * rest + 128;
        even = (even + (even >> 8)) >> 8;
        odd = (odd + (odd >> 8)) & 0xFF00;
        to = even | odd;
        std::memcpy(destination + x, &to, sizeof to);
    }
    for (; x < count; ++x) destination[x] = blended(source[x], destination[x], alpha);
}

VANTRACE_BODY void blendWordBody(std::uint32_t source, std::uint32_t* destination, std::size_t count,
                                 std::uint32_t alpha) {
    using Lanes [[gnu::vector_size(32), gnu::aligned(16)]] = std::uint16_t;
    constexpr std::size_t together = sizeof(Lanes) / sizeof(std::uint32_t);
    std::uint32_t words[together];
    std::fill(words, words + together, source);
    Lanes from;
    std::memcpy(&from, words, sizeof from);
    const Lanes weight = Lanes{} + static_cast<std::uint16_t>(alpha);
    const Lanes rest = Lanes{} + static_cast<std::uint16_t>(255 - alpha);
    const Lanes evenFrom = (from & 0xFF) * weight + 128;
    const Lanes oddFrom = (from >> 8) * weight + 128;
    std::size_t x = 0;
    for (; x + together <= count; x += together) {
        Lanes to;
        std::memcpy(&to, destination + x, sizeof to);
        Lanes even = (to & 0xFF) * rest + evenFrom;
        Lanes odd = (to >> 8) * rest + oddFrom;
        even = (even + (even >> 8)) >> 8;
        odd = (odd + (odd >> 8)) & 0xFF00;
        to = even | odd;
        std::memcpy(destination + x, &to, sizeof to);
    }
    for (; x < count; ++x) destination[x] = blended(source, destination[x], alpha);
}

using Words = const std::uint32_t*;

void add(const AddTask& task) {
    addBody(task);
}
void blendRow(Words source, std::uint32_t* destination, std::size_t count, std::uint32_t alpha) {
    blendRowBody(source, destination, count, alpha);
}
void blendWord(std::uint32_t source, std::uint32_t* destination, std::size_t count, std::uint32_t alpha) {
    blendWordBody(source, destination, count, alpha);
}

#if defined(VANTRACE_WIDE)

VANTRACE_WIDE VANTRACE_BODY __m256i load(const void* from) {
    return _mm256_loadu_si256(static_cast<const __m256i*>(from));
}
VANTRACE_WIDE VANTRACE_BODY __m128i loadHalf(const void* from) {
    return _mm_loadu_si128(static_cast<const __m128i*>(from));
}
/// Two weights, again and again.
VANTRACE_WIDE VANTRACE_BODY __m256i pairOf(const std::int16_t* weights) {
    std::int32_t pair = 0;
    std::memcpy(&pair, weights, sizeof pair);
    return _mm256_set1_epi32(pair);
}

/// The four lanes of a wanted pixel, as 32 bits: of the upper row in the lower half, and the other way round.
VANTRACE_WIDE VANTRACE_BODY __m256i widenedPixel(const WidenTask& task, std::size_t pixel) {
    const __m256i middle = _mm256_set1_epi8(-128);
    // The same bytes of two pixels side by side, to be weighted and summed at once.
    const __m256i sideBySide = _mm256_setr_epi8(0, 4, 1, 5, 2, 6, 3, 7, 8, 12, 9, 13, 10, 14, 11, 15,  //
                                                0, 4, 1, 5, 2, 6, 3, 7, 8, 12, 9, 13, 10, 14, 11, 15);
    const auto first = static_cast<std::size_t>(task.first[pixel]);
    const std::int16_t* weights = task.weights + pixel * task.taps;
    __m256i sum = _mm256_set1_epi32(half(weightBits));
    for (std::size_t tap = 0; tap < task.taps; tap += columnTaps, weights += columnTaps) {
        __m256i bytes = _mm256_castsi128_si256(loadHalf(task.upperSource + first + tap));
        bytes = _mm256_inserti128_si256(bytes, loadHalf(task.lowerSource + first + tap), 1);
        bytes = _mm256_shuffle_epi8(_mm256_xor_si256(bytes, middle), sideBySide);
        const __m256i left = _mm256_unpacklo_epi8(_mm256_setzero_si256(), bytes);
        const __m256i right = _mm256_unpackhi_epi8(_mm256_setzero_si256(), bytes);
        sum = _mm256_add_epi32(sum, _mm256_madd_epi16(left, pairOf(weights)));
        sum = _mm256_add_epi32(sum, _mm256_madd_epi16(right, pairOf(weights + 2)));
    }
    return _mm256_srai_epi32(sum, weightBits);
}

VANTRACE_WIDE VANTRACE_BODY void widenWideBody(const WidenTask& task) {
    for (std::size_t i = 0; i < task.count; i += 2) {
        const __m256i one = widenedPixel(task, i);
        const __m256i other = widenedPixel(task, std::min(i + 1, task.count - 1));
        const __m256i both = _mm256_packs_epi32(one, other);
        void* const upper = task.upper + i * lanesOfPixel;
        void* const lower = task.lower + i * lanesOfPixel;
        _mm_storeu_si128(static_cast<__m128i*>(upper), _mm256_castsi256_si128(both));
        _mm_storeu_si128(static_cast<__m128i*>(lower), _mm256_extracti128_si256(both, 1));
    }
}

VANTRACE_WIDE void widenWide(const WidenTask& task) {
    if (task.taps == columnTaps) {
        // With a known number the loop over them is none.
        WidenTask known = task;
        known.taps = columnTaps;
        return widenWideBody(known);
    }
    widenWideBody(task);
}

/// Four pixels as lanes of 8 bits in 16.
template <bool hasTwo>
VANTRACE_WIDE VANTRACE_BODY __m256i mergedPixels(const MergeTask& task, std::size_t x, __m256i upperWeights,
                                                 __m256i lowerWeights) {
    const __m256i rounding = _mm256_set1_epi32(half(sumBits));
    const __m256i first = load(task.rows[0] + x * lanesOfPixel);
    const __m256i second = load(task.rows[1] + x * lanesOfPixel);
    __m256i low = _mm256_madd_epi16(_mm256_unpacklo_epi16(first, second), upperWeights);
    __m256i high = _mm256_madd_epi16(_mm256_unpackhi_epi16(first, second), upperWeights);
    if constexpr (!hasTwo) {
        const __m256i third = load(task.rows[2] + x * lanesOfPixel);
        const __m256i fourth = load(task.rows[3] + x * lanesOfPixel);
        low = _mm256_add_epi32(low, _mm256_madd_epi16(_mm256_unpacklo_epi16(third, fourth), lowerWeights));
        high = _mm256_add_epi32(high, _mm256_madd_epi16(_mm256_unpackhi_epi16(third, fourth), lowerWeights));
    }
    low = _mm256_srai_epi32(_mm256_add_epi32(low, rounding), sumBits);
    high = _mm256_srai_epi32(_mm256_add_epi32(high, rounding), sumBits);
    return _mm256_packs_epi32(low, high);
}

template <bool hasTwo>
VANTRACE_WIDE VANTRACE_BODY void mergeWideBody(const MergeTask& task) {
    constexpr int halvesCrossed = 0xD8;
    const __m256i upperWeights = pairOf(task.weights);
    const __m256i lowerWeights = pairOf(task.weights + 2);
    for (std::size_t x = 0; x < task.count; x += pixelsTogether) {
        const __m256i left = mergedPixels<hasTwo>(task, x, upperWeights, lowerWeights);
        const __m256i right = mergedPixels<hasTwo>(task, x + 4, upperWeights, lowerWeights);
        // Both steps to narrower numbers stop at the ends of their range.
        const __m256i bytes = _mm256_permute4x64_epi64(_mm256_packs_epi16(left, right), halvesCrossed);
        const __m256i words = _mm256_xor_si256(bytes, _mm256_set1_epi8(-128));
        std::memcpy(task.words + x, &words, std::min(task.count - x, pixelsTogether) * sizeof(std::uint32_t));
    }
}

VANTRACE_WIDE void mergeWide(const MergeTask& task) {
    if (task.hasTwo) return mergeWideBody<true>(task);
    mergeWideBody<false>(task);
}
VANTRACE_WIDE void addWide(const AddTask& task) {
    addBody(task);
}
VANTRACE_WIDE void blendRowWide(Words source, std::uint32_t* destination, std::size_t count,
                                std::uint32_t alpha) {
    blendRowBody(source, destination, count, alpha);
}

VANTRACE_WIDE void blendWordWide(std::uint32_t source, std::uint32_t* destination, std::size_t count,
                                 std::uint32_t alpha) {
    blendWordBody(source, destination, count, alpha);
}

#endif

}  // namespace

void toWords(const std::int32_t* sums, std::size_t count, std::uint32_t* words) {
    for (std::size_t x = 0; x < count; ++x) words[x] = toWord(sums + x * lanesOfPixel);
}

const Kernels& plainKernels() {
    static constexpr Kernels kernels{widen, merge, add, blendRow, blendWord};
    return kernels;
}

const Kernels& bestKernels() {
#if defined(VANTRACE_WIDE)
    static constexpr Kernels wideKernels{widenWide, mergeWide, addWide, blendRowWide, blendWordWide};
    if (__builtin_cpu_supports("avx2")) return wideKernels;
#endif
    return plainKernels();
}

}  // namespace vantrace::surface
