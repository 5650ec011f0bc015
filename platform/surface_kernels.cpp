#include "platform/surface_kernels.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

#include "platform/surface_blend.h"

// What is marked so becomes part of the function that calls it, and is compiled for that one's processor.
#define VANTRACE_BODY [[gnu::always_inline]] inline
#if defined(__x86_64__)
#define VANTRACE_WIDE [[gnu::target("avx2")]]
#endif

namespace vantrace::surface {
namespace {

/// Two pixels side by side. The narrower alignment is that of Pixel: compilers don't agree with themselves on
/// that of a wide vector when one file is for two processors.
using TwoPixels [[gnu::vector_size(32), gnu::aligned(16), gnu::may_alias]] = float;

VANTRACE_BODY const TwoPixels* twoPixels(const void* pixels) {
    return static_cast<const TwoPixels*>(pixels);
}

VANTRACE_BODY void toPixel(std::uint32_t word, float* lanes) {
    for (unsigned lane = 0; lane < 4; ++lane) lanes[lane] = static_cast<float>((word >> (8 * lane)) & 0xFF);
}

VANTRACE_BODY std::uint32_t toWord(const float* lanes) {
    std::uint32_t word = 0;
    for (unsigned lane = 0; lane < 4; ++lane) {
        const float value = std::nearbyint(std::clamp(lanes[lane], 0.0F, 255.0F));
        word |= static_cast<std::uint32_t>(value) << (8 * lane);
    }
    return word;
}

/// Four words as sixteen numbers, and back.
VANTRACE_BODY void toFourPixels(const std::uint32_t* words, float* lanes) {
#if defined(__SSE2__)
    const __m128i bytes = _mm_loadu_si128(static_cast<const __m128i*>(static_cast<const void*>(words)));
    const __m128i zero = _mm_setzero_si128();
    const __m128i low = _mm_unpacklo_epi8(bytes, zero);
    const __m128i high = _mm_unpackhi_epi8(bytes, zero);
    _mm_store_ps(lanes, _mm_cvtepi32_ps(_mm_unpacklo_epi16(low, zero)));
    _mm_store_ps(lanes + 4, _mm_cvtepi32_ps(_mm_unpackhi_epi16(low, zero)));
    _mm_store_ps(lanes + 8, _mm_cvtepi32_ps(_mm_unpacklo_epi16(high, zero)));
    _mm_store_ps(lanes + 12, _mm_cvtepi32_ps(_mm_unpackhi_epi16(high, zero)));
#else
    for (std::size_t i = 0; i < 4; ++i) toPixel(words[i], lanes + 4 * i);
#endif
}

VANTRACE_BODY void toFourWords(const float* lanes, std::uint32_t* words) {
#if defined(__SSE2__)
    // Both steps to narrower numbers stop at the ends of their range.
    const __m128i low =
        _mm_packs_epi32(_mm_cvtps_epi32(_mm_load_ps(lanes)), _mm_cvtps_epi32(_mm_load_ps(lanes + 4)));
    const __m128i high =
        _mm_packs_epi32(_mm_cvtps_epi32(_mm_load_ps(lanes + 8)), _mm_cvtps_epi32(_mm_load_ps(lanes + 12)));
    _mm_storeu_si128(static_cast<__m128i*>(static_cast<void*>(words)), _mm_packus_epi16(low, high));
#else
    for (std::size_t i = 0; i < 4; ++i) words[i] = toWord(lanes + 4 * i);
#endif
}

VANTRACE_BODY void readPairBody(const std::uint32_t* upper, const std::uint32_t* lower, std::size_t count,
                                PixelPair* pairs) {
    auto* lanes = static_cast<float*>(static_cast<void*>(pairs));
    std::size_t x = 0;
    alignas(32) float above[16];
    alignas(32) float below[16];
    for (; x + 4 <= count; x += 4) {
        toFourPixels(upper + x, above);
        toFourPixels(lower + x, below);
#pragma GCC unroll 4
        for (std::size_t i = 0; i < 4; ++i, lanes += 8) {
            std::memcpy(lanes, above + 4 * i, sizeof(Pixel));
            std::memcpy(lanes + 4, below + 4 * i, sizeof(Pixel));
        }
    }
    for (; x < count; ++x, lanes += 8) {
        toPixel(upper[x], lanes);
        toPixel(lower[x], lanes + 4);
    }
}

/// With `known` taps, or as many as the task tells where that is 0.
template <std::size_t known>
VANTRACE_BODY void widenBody(const WidenTask& task) {
    const std::size_t taps = known > 0 ? known : task.taps;
    const float* weights = task.weights;
    for (std::size_t i = 0; i < task.count; ++i) {
        const TwoPixels* const source = twoPixels(task.source + task.first[i]);
        TwoPixels sum = source[0] * weights[0];
        for (std::size_t tap = 1; tap < taps; ++tap) sum += source[tap] * weights[tap];
        weights += taps;
        std::memcpy(task.upper + i, &sum, sizeof(Pixel));
        std::memcpy(task.lower + i, static_cast<const char*>(static_cast<const void*>(&sum)) + sizeof(Pixel),
                    sizeof(Pixel));
    }
}

template <std::size_t taps>
VANTRACE_BODY void mergeBody(const MergeTask& task) {
    // Out of the task's reach, so that they lie in registers while the words are written.
    const Pixel* from[taps];
    float by[taps];
    for (std::size_t tap = 0; tap < taps; ++tap) {
        from[tap] = task.sources[tap];
        by[tap] = task.weights[tap];
    }
    alignas(32) float four[16];
    for (std::size_t x = 0; x < task.count; x += 4) {
        TwoPixels left{};
        TwoPixels right{};
#pragma GCC unroll 4
        for (std::size_t tap = 0; tap < taps; ++tap) {
            const TwoPixels* const pixels = twoPixels(from[tap] + x);
            left += pixels[0] * by[tap];
            right += pixels[1] * by[tap];
        }
        std::memcpy(four, &left, sizeof left);
        std::memcpy(four + 8, &right, sizeof right);
        const std::size_t present = std::min<std::size_t>(task.count - x, 4);
        if (present == 4) {
            toFourWords(four, task.words + x);
        } else {
            for (std::size_t i = 0; i < present; ++i) task.words[x + i] = toWord(four + 4 * i);
        }
    }
}

VANTRACE_BODY void addBody(const AddTask& task) {
    for (std::size_t x = 0; x < task.count; ++x) task.sum[x].lanes += task.source[x].lanes * task.weight;
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

VANTRACE_BODY void widenAny(const WidenTask& task) {
    switch (task.taps) {
        case 1:
            return widenBody<1>(task);
        case 2:
            return widenBody<2>(task);
        case 3:
            return widenBody<3>(task);
        case 4:
            return widenBody<4>(task);
        default:
            return widenBody<0>(task);
    }
}

VANTRACE_BODY void mergeAny(const MergeTask& task) {
    switch (task.taps) {
        case 1:
            return mergeBody<1>(task);
        case 2:
            return mergeBody<2>(task);
        case 3:
            return mergeBody<3>(task);
        default:
            return mergeBody<4>(task);
    }
}

using Words = const std::uint32_t*;

void readPair(Words upper, Words lower, std::size_t count, PixelPair* pairs) {
    readPairBody(upper, lower, count, pairs);
}
void widen(const WidenTask& task) {
    widenAny(task);
}
void merge(const MergeTask& task) {
    mergeAny(task);
}
void add(const AddTask& task) {
    addBody(task);
}
void blendRow(Words source, std::uint32_t* destination, std::size_t count, std::uint32_t alpha) {
    blendRowBody(source, destination, count, alpha);
}

#if defined(VANTRACE_WIDE)
VANTRACE_WIDE void readPairWide(Words upper, Words lower, std::size_t count, PixelPair* pairs) {
    readPairBody(upper, lower, count, pairs);
}
VANTRACE_WIDE void widenWide(const WidenTask& task) {
    widenAny(task);
}
VANTRACE_WIDE void mergeWide(const MergeTask& task) {
    mergeAny(task);
}
VANTRACE_WIDE void addWide(const AddTask& task) {
    addBody(task);
}
VANTRACE_WIDE void blendRowWide(Words source, std::uint32_t* destination, std::size_t count,
                                std::uint32_t alpha) {
    blendRowBody(source, destination, count, alpha);
}
#endif

}  // namespace

const Kernels& plainKernels() {
    static constexpr Kernels kernels{readPair, widen, merge, add, blendRow};
    return kernels;
}

const Kernels& bestKernels() {
#if defined(VANTRACE_WIDE)
    static constexpr Kernels wideKernels{readPairWide, widenWide, mergeWide, addWide, blendRowWide};
    if (__builtin_cpu_supports("avx2")) return wideKernels;
#endif
    return plainKernels();
}

}  // namespace vantrace::surface
