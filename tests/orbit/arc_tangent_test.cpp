#include "orbit/arc_tangent.h"

#include <bit>

#include "tests/support/testing.h"

namespace vantrace {
namespace {

double arcTangent(double y, double x) {
    return arcTangents(y, x, 1.0, 1.0).first;
}

void expectTrue(double y, double x) {
    const long double exact = std::atan2(static_cast<long double>(y), static_cast<long double>(x));
    // One unit in the last place of an angle near pi, and a little for the steps before.
    EXPECT_LE(std::abs(static_cast<long double>(arcTangent(y, x)) - exact), 4.6e-16L)
        << "y " << y << " x " << x;
}

TEST(ArcTangents, AreTrueInEveryQuadrantAndDirection) {
    for (int i = 0; i < 200000; ++i) {
        const double angle = -3.14159265358979 + i * (6.28318530717958 / 200000.0);
        expectTrue(std::sin(angle), std::cos(angle));
    }
}

TEST(ArcTangents, AreTrueForArgumentsOfEverySize) {
    std::mt19937 random(3);
    std::uniform_real_distribution<double> exponent(-150.0, 150.0);
    std::uniform_int_distribution<int> coin(0, 1);
    for (int i = 0; i < 100000; ++i) {
        const double y = std::pow(10.0, exponent(random)) * (coin(random) * 2 - 1);
        const double x = std::pow(10.0, exponent(random)) * (coin(random) * 2 - 1);
        expectTrue(y, x);
        expectTrue(y, x / std::abs(x) * std::abs(y) * (1.0 + exponent(random) * 1e-3));
    }
}

TEST(ArcTangents, AreTrueOnTheAxesAndAtTheSeamsOfTheSeries) {
    constexpr double tangentOfSixteenth = 0.41421356237309503;
    for (const double y : {0.0, 1.0, -1.0}) {
        for (const double x : {1.0, -1.0}) expectTrue(y, x);
    }
    expectTrue(1.0, 0.0);
    expectTrue(-1.0, 0.0);
    for (const double t : {tangentOfSixteenth, 1.0 / tangentOfSixteenth, 1.0}) {
        for (const double sign : {1.0, -1.0}) {
            expectTrue(sign * std::nextafter(t, 0.0), 1.0);
            expectTrue(sign * t, -1.0);
            expectTrue(sign * std::nextafter(t, 2.0 * t), 1.0);
        }
    }
}

TEST(ArcTangents, KeepTheSignOfAZeroOnTheWestAxis) {
    EXPECT_DOUBLE_EQ(arcTangent(0.0, -5.0), 3.14159265358979323846);
    EXPECT_DOUBLE_EQ(arcTangent(-0.0, -5.0), -3.14159265358979323846);
}

TEST(ArcTangents, AreZeroWhereThereIsNoDirection) {
    EXPECT_EQ(arcTangent(0.0, 0.0), 0.0);
    EXPECT_EQ(arcTangent(-0.0, 0.0), 0.0);
}

TEST(ArcTangents, OfAPairDoNotTouchOneAnother) {
    std::mt19937 random(4);
    std::uniform_real_distribution<double> value(-5.0, 5.0);
    for (int i = 0; i < 20000; ++i) {
        const double y1 = value(random), x1 = value(random), y2 = value(random), x2 = value(random);
        const AnglePair pair = arcTangents(y1, x1, y2, x2);
        const AnglePair turned = arcTangents(y2, x2, y1, x1);
        ASSERT_EQ(std::bit_cast<std::uint64_t>(pair.first), std::bit_cast<std::uint64_t>(turned.second));
        ASSERT_EQ(std::bit_cast<std::uint64_t>(pair.second), std::bit_cast<std::uint64_t>(turned.first));
    }
}

}  // namespace
}  // namespace vantrace
