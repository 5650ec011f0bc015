

#include "orbit/sgp4/short_period.h"
#include "tests/support/testing.h"

namespace vantrace {
namespace {

/// E + omega of u = E - ax sin E + ay cos E, in extended precision by halving: the left side grows with E.
long double bracketed(long double u, long double ax, long double ay) {
    long double low = u - 2.0L;
    long double high = u + 2.0L;
    for (int i = 0; i < 90; ++i) {
        const long double middle = 0.5L * (low + high);
        const long double value = middle - ax * std::sin(middle) + ay * std::cos(middle);
        (value < u ? low : high) = middle;
    }
    return 0.5L * (low + high);
}

void expectSolved(double u, double eccentricity, double perigee) {
    const double ax = eccentricity * std::cos(perigee);
    const double ay = eccentricity * std::sin(perigee);
    const long double truth = bracketed(u, ax, ay);
    const SinCos solved = solveKepler(u, ax, ay);
    // The equation is met to some 1e-14; its slope magnifies that, and what the argument's last bit means.
    const double slope = static_cast<double>(1.0L - ax * std::cos(truth) - ay * std::sin(truth));
    const double tolerance = 2e-15 + (4e-15 / (1.0 - eccentricity) + 4e-16 * std::abs(u)) / slope;
    EXPECT_NEAR(solved.sin, static_cast<double>(std::sin(truth)), tolerance)
        << "u " << u << " e " << eccentricity << " perigee " << perigee;
    EXPECT_NEAR(solved.cos, static_cast<double>(std::cos(truth)), tolerance)
        << "u " << u << " e " << eccentricity << " perigee " << perigee;
}

TEST(Kepler, EquationIsSolvedForEveryEccentricity) {
    std::mt19937 random(11);
    std::uniform_real_distribution<double> angle(-3.2, 3.2);
    for (const double eccentricity : {0.0, 1e-6, 0.001, 0.01, 0.1, 0.3, 0.5, 0.7, 0.8, 0.9, 0.95, 0.99}) {
        for (int i = 0; i < 1000; ++i) expectSolved(angle(random), eccentricity, angle(random));
    }
}

TEST(Kepler, EquationIsSolvedManyTurnsAway) {
    std::mt19937 random(12);
    std::uniform_real_distribution<double> angle(-5e4, 5e4);
    for (const double eccentricity : {0.001, 0.2, 0.75}) {
        for (int i = 0; i < 1000; ++i) expectSolved(angle(random), eccentricity, angle(random));
    }
}

TEST(Kepler, EquationIsSolvedAtPerigeeAndApogee) {
    for (const double eccentricity : {0.001, 0.7, 0.97}) {
        for (const double perigee : {0.0, 1.0, 3.0}) {
            for (const double aside : {0.0, 1e-12, 1e-6, 1e-3}) {
                expectSolved(perigee + aside, eccentricity, perigee);
                expectSolved(perigee + 3.14159265358979 - aside, eccentricity, perigee);
            }
        }
    }
}

}  // namespace
}  // namespace vantrace
