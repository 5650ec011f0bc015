#include "orbit/sky/nutation.h"

#include <array>
#include <cmath>

#include "orbit/elements/element_set.h"

namespace vantrace {

namespace {

/// Multiples of the arguments D, M, M', F and the node; sine of the longitude and cosine of the obliquity in
/// units of 0.0001 arc seconds with their change a century.
struct NutationTerm {
    int d, m, mMoon, f, node;
    double longitude, longitudeRate, obliquity, obliquityRate;
};

constexpr std::array<NutationTerm, 21> nutationTerms = {{
    {0, 0, 0, 0, 1, -171996, -174.2, 92025, 8.9},
    {-2, 0, 0, 2, 2, -13187, -1.6, 5736, -3.1},
    {0, 0, 0, 2, 2, -2274, -0.2, 977, -0.5},
    {0, 0, 0, 0, 2, 2062, 0.2, -895, 0.5},
    {0, 1, 0, 0, 0, 1426, -3.4, 54, -0.1},
    {0, 0, 1, 0, 0, 712, 0.1, -7, 0},
    {-2, 1, 0, 2, 2, -517, 1.2, 224, -0.6},
    {0, 0, 0, 2, 1, -386, -0.4, 200, 0},
    {0, 0, 1, 2, 2, -301, 0, 129, -0.1},
    {-2, -1, 0, 2, 2, 217, -0.5, -95, 0.3},
    {-2, 0, 1, 0, 0, -158, 0, 0, 0},
    {-2, 0, 0, 2, 1, 129, 0.1, -70, 0},
    {0, 0, -1, 2, 2, 123, 0, -53, 0},
    {2, 0, 0, 0, 0, 63, 0, 0, 0},
    {0, 0, 1, 0, 1, 63, 0.1, -33, 0},
    {2, 0, -1, 2, 2, -59, 0, 26, 0},
    {0, 0, -1, 0, 1, -58, -0.1, 32, 0},
    {0, 0, 1, 2, 1, -51, 0, 27, 0},
    {-2, 0, 2, 0, 0, 48, 0, 0, 0},
    {0, 0, -2, 2, 1, 46, 0, -24, 0},
    {2, 0, 0, 2, 2, -38, 0, 16, 0},
}};

}  // namespace

Nutation nutation(double t) {
    const double d = (297.85036 + t * (445267.111480 + t * (-0.0019142 + t / 189474.0))) * radiansPerDegree;
    const double m = (357.52772 + t * (35999.050340 + t * (-0.0001603 - t / 300000.0))) * radiansPerDegree;
    const double mMoon = (134.96298 + t * (477198.867398 + t * (0.0086972 + t / 56250.0))) * radiansPerDegree;
    const double f = (93.27191 + t * (483202.017538 + t * (-0.0036825 + t / 327270.0))) * radiansPerDegree;
    const double node = (125.04452 + t * (-1934.136261 + t * (0.0020708 + t / 450000.0))) * radiansPerDegree;
    double longitude = 0.0;
    double obliquity = 0.0;
    for (const NutationTerm& term : nutationTerms) {
        const double angle = term.d * d + term.m * m + term.mMoon * mMoon + term.f * f + term.node * node;
        longitude += (term.longitude + term.longitudeRate * t) * std::sin(angle);
        obliquity += (term.obliquity + term.obliquityRate * t) * std::cos(angle);
    }
    constexpr double arcSecond = radiansPerDegree / 3600.0;
    const double meanObliquity = (84381.448 + t * (-46.8150 + t * (-0.00059 + t * 0.001813))) * arcSecond;
    return {longitude * 1.0e-4 * arcSecond, obliquity * 1.0e-4 * arcSecond,
            meanObliquity + obliquity * 1.0e-4 * arcSecond};
}

}  // namespace vantrace
