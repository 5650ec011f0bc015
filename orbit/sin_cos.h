// Sine and cosine together, inline, so that several independent ones run side by side in the processor.
#pragma once

#include <bit>
#include <cmath>
#include <cstdint>

namespace vantrace {

struct SinCos {
    double sin;
    double cos;
};

namespace detail {

/// Two angles side by side in a vector register.
using Pair [[gnu::vector_size(16)]] = double;
using PairBits [[gnu::vector_size(16)]] = std::uint64_t;

template <class Real>
struct BitsOf {
    using type = std::uint64_t;
};
template <>
struct BitsOf<Pair> {
    using type = PairBits;
};

template <class Real>
struct SinCosOf {
    Real sin;
    Real cos;
};

/// Taylor series on |r| <= pi/4; the first term left out is below 5e-17 (sine) and 3e-18 (cosine).
template <class Real>
inline SinCosOf<Real> sinCosNearZero(Real r) {
    const Real r2 = r * r;
    const Real r4 = r2 * r2;
    const Real r8 = r4 * r4;
    // Grouped in pairs (Estrin), so that the sums don't wait for one another.
    const Real s0 = -1.0 / 6.0 + r2 * (1.0 / 120.0);
    const Real s1 = -1.0 / 5040.0 + r2 * (1.0 / 362880.0);
    const Real s2 = -1.0 / 39916800.0 + r2 * (1.0 / 6227020800.0);
    const Real sine = r + r * r2 * ((s0 + r4 * s1) + r8 * (s2 + r4 * (-1.0 / 1307674368000.0)));
    const Real c0 = 1.0 / 24.0 + r2 * (-1.0 / 720.0);
    const Real c1 = 1.0 / 40320.0 + r2 * (-1.0 / 3628800.0);
    const Real c2 = 1.0 / 479001600.0 + r2 * (-1.0 / 87178291200.0);
    const Real cosine = 1.0 - 0.5 * r2 + r4 * ((c0 + r4 * c1) + r8 * (c2 + r4 * (1.0 / 20922789888000.0)));
    return {sine, cosine};
}

/// For |x| up to 1e5.
template <class Real>
inline SinCosOf<Real> sinCosReduced(Real x) {
    using Bits = typename BitsOf<Real>::type;
    // The nearest multiple of pi/2 is taken off in three parts (Cody and Waite); the first two have 33 bits,
    // so that their products with the multiple are exact.
    constexpr double part1 = 0x1.921fb544p+0;
    constexpr double part2 = 0x1.0b4611a6p-34;
    constexpr double part3 = 0x1.3198a2e037073p-69;
    constexpr double roundingShift = 0x1.8p52;
    const Real shifted = x * 0.63661977236758134308 + roundingShift;
    const Real multiple = shifted - roundingShift;
    const Real r = ((x - multiple * part1) - multiple * part2) - multiple * part3;
    const SinCosOf<Real> near = sinCosNearZero(r);
    // Odd quadrants swap the two, the upper two bits of the quadrant give the signs; without a branch.
    const auto quadrant = std::bit_cast<Bits>(shifted);
    const auto sineBits = std::bit_cast<Bits>(near.sin);
    const auto cosineBits = std::bit_cast<Bits>(near.cos);
    const Bits swap = (0 - (quadrant & 1)) & (sineBits ^ cosineBits);
    const Bits sineSign = (quadrant & 2) << 62;
    const Bits cosineSign = ((quadrant + 1) & 2) << 62;
    return {std::bit_cast<Real>((sineBits ^ swap) ^ sineSign),
            std::bit_cast<Real>((cosineBits ^ swap) ^ cosineSign)};
}

inline constexpr double largestReduced = 1.0e5;

}  // namespace detail

/// Within 2.5e-16 of the true values for |x| up to 1e5 radians; beyond that the C library answers.
inline SinCos sinCos(double x) {
    if (!(std::abs(x) < detail::largestReduced)) {
        return {std::sin(x), std::cos(x)};
    }
    const auto result = detail::sinCosReduced(x);
    return {result.sin, result.cos};
}

struct SinCosPair {
    SinCos first;
    SinCos second;
};

/// The same bits as two single calls, in little more than the time of one.
inline SinCosPair sinCos(double first, double second) {
    if (!(std::abs(first) < detail::largestReduced && std::abs(second) < detail::largestReduced)) {
        return {sinCos(first), sinCos(second)};
    }
    const auto result = detail::sinCosReduced(detail::Pair{first, second});
    return {{result.sin[0], result.cos[0]}, {result.sin[1], result.cos[1]}};
}

/// Of an angle that is a small correction: a short series below 0.01 (exact to 1e-18), else the whole
/// routine.
inline SinCos sinCosSmall(double x) {
    if (std::abs(x) < 0.01) {
        const double x2 = x * x;
        return {x * (1.0 - x2 * (1.0 / 6.0) * (1.0 - x2 * (1.0 / 20.0) * (1.0 - x2 * (1.0 / 42.0)))),
                1.0 - 0.5 * x2 * (1.0 - x2 * (1.0 / 12.0) * (1.0 - x2 * (1.0 / 30.0)))};
    }
    constexpr double quarterPi = 0.78539816339744830962;
    if (std::abs(x) < quarterPi) {
        const auto result = detail::sinCosNearZero(x);
        return {result.sin, result.cos};
    }
    return sinCos(x);
}

/// An angle without its whole turns, between -2 pi and 2 pi, signed as it was.
inline double withoutTurns(double angle) {
    constexpr double turn = 6.283185307179586477;
    const double turns = angle * (1.0 / turn);
    constexpr double exactIntegers = 0x1p52;
    return std::abs(turns) < exactIntegers
               ? angle - turn * static_cast<double>(static_cast<std::int64_t>(turns))
               : std::fmod(angle, turn);
}

/// Sine and cosine of a + b from those of a and b.
inline SinCos addAngles(const SinCos& a, const SinCos& b) {
    return {a.sin * b.cos + a.cos * b.sin, a.cos * b.cos - a.sin * b.sin};
}

}  // namespace vantrace
