// Two arc tangents side by side, for the pairs of angles that a look at the sky ends in.
#pragma once

#include <cmath>
#include <cstdint>

#include "orbit/sin_cos.h"

namespace vantrace {

struct AnglePair {
    double first;
    double second;
};

namespace detail {

/// All bits set where the comparison holds, else none.
using PairMask [[gnu::vector_size(16)]] = std::int64_t;

inline Pair absolute(Pair x) {
    const PairBits allButSign = {0x7fffffffffffffffU, 0x7fffffffffffffffU};
    return std::bit_cast<Pair>(std::bit_cast<PairBits>(x) & allButSign);
}

inline Pair withSignOf(Pair magnitude, Pair sign) {
    const PairBits signBit = {0x8000000000000000U, 0x8000000000000000U};
    return std::bit_cast<Pair>(std::bit_cast<PairBits>(magnitude) |
                               (std::bit_cast<PairBits>(sign) & signBit));
}

/// atan(t) for |t| <= tan(pi/8): t + t^3 times the polynomial that meets (atan(t)/t - 1)/t^2 at the eleven
/// Chebyshev nodes of that range; relative error below 5e-18 before rounding.
inline Pair arcTangentNearZero(Pair t) {
    const Pair u = t * t;
    const Pair u2 = u * u;
    const Pair u4 = u2 * u2;
    const Pair p0 = -0.33333333333333330160 + u * 0.19999999999995520674;
    const Pair p1 = -0.14285714284666542061 + u * 0.11111111015256292406;
    const Pair p2 = -0.090909045781210852000 + u * 0.076921831907606508702;
    const Pair p3 = -0.066645114464602189808 + u * 0.058581489047951238442;
    const Pair p4 = -0.050854496960392585335 + u * 0.039231657085083686644;
    const Pair low = (p0 + u2 * p1) + u4 * (p2 + u2 * p3);
    return t + t * u * (low + u4 * u4 * (p4 + u2 * -0.019176885636589051899));
}

}  // namespace detail

/// atan2(y1, x1) and atan2(y2, x2), -pi to pi, within 5e-16; 0 where both arguments are 0.
inline AnglePair arcTangents(double y1, double x1, double y2, double x2) {
    using namespace detail;
    const Pair y{y1, y2};
    const Pair x{x1, x2};
    const Pair absoluteY = absolute(y);
    const Pair absoluteX = absolute(x);
    const PairMask steep = absoluteY > absoluteX;
    const Pair shorter = steep ? absoluteX : absoluteY;
    const Pair longer = steep ? absoluteY : absoluteX;
    // Beyond tan(pi/8) the angle is taken from pi/4: atan(t) = pi/4 + atan((t - 1) / (t + 1)).
    const PairMask wide = shorter > 0.41421356237309503 * longer;
    const Pair numerator = wide ? shorter - longer : shorter;
    const Pair denominator = wide ? shorter + longer : longer;
    const Pair smallest = {5e-324, 5e-324};
    const Pair quotient = numerator / (denominator > 0.0 ? denominator : smallest);
    const Pair zero = {0.0, 0.0};
    const Pair quarter = {0.78539816339744830962, 0.78539816339744830962};
    const Pair half = {1.57079632679489661923, 1.57079632679489661923};
    const Pair whole = {3.14159265358979323846, 3.14159265358979323846};
    Pair angle = arcTangentNearZero(quotient) + (wide ? quarter : zero);
    angle = steep ? half - angle : angle;
    angle = x < 0.0 ? whole - angle : angle;
    angle = withSignOf(angle, y);
    return {angle[0], angle[1]};
}

}  // namespace vantrace
