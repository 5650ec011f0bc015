#include <bit>

#include "orbit/angles.h"
#include "orbit/arc_tangent.h"
#include "orbit/sin_cos.h"
#include "tests/support/testing.h"

namespace vantrace {
namespace {

/// Two units in the last place of a value just below 1.
constexpr double promised = 2.2e-16;

void expectTrue(double x, const SinCos& value) {
    const long double exact = x;
    EXPECT_LE(std::abs(static_cast<long double>(value.sin) - std::sin(exact)), promised) << "sin " << x;
    EXPECT_LE(std::abs(static_cast<long double>(value.cos) - std::cos(exact)), promised) << "cos " << x;
}

std::vector<double> anglesOfEverySize() {
    std::vector<double> angles;
    std::mt19937_64 random(1);
    for (const double size : {1e-9, 1e-3, 0.1, 1.0, 10.0, 1e3, 99999.0}) {
        std::uniform_real_distribution<double> angle(-size, size);
        for (int i = 0; i < 20000; ++i) angles.push_back(angle(random));
    }
    return angles;
}

TEST(SinCos, IsTrueToTheLastBitAtEverySizeAndAroundEveryQuarterTurn) {
    for (const double x : anglesOfEverySize()) expectTrue(x, sinCos(x));
    // Where the reduction cancels most: the doubles next to multiples of a quarter of pi.
    for (int k = -60000; k <= 60000; k += 7) {
        const double x = k * 0.785398163397448309616;
        expectTrue(x, sinCos(x));
        expectTrue(std::nextafter(x, 1e9), sinCos(std::nextafter(x, 1e9)));
    }
}

TEST(SinCos, HasNoSeamAtItsBounds) {
    for (const double x :
         {std::nextafter(1e5, 0.0), 1e5, std::nextafter(1e5, 2e5), 123456.789, 1e15, 1e300}) {
        expectTrue(x, sinCos(x));
        expectTrue(-x, sinCos(-x));
    }
    for (double x = -0.0201; x < 0.0201; x += 1.7e-6) expectTrue(x, sinCosSmall(x));
}

TEST(SinCos, TakesZerosAndWhatIsNoNumber) {
    for (const double zero : {0.0, -0.0}) {
        EXPECT_EQ(sinCos(zero).sin, 0.0);
        EXPECT_EQ(sinCos(zero).cos, 1.0);
    }
    for (const double x : {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(),
                           -std::numeric_limits<double>::infinity()}) {
        EXPECT_TRUE(std::isnan(sinCos(x).sin));
        EXPECT_TRUE(std::isnan(sinCos(x).cos));
    }
}

TEST(SinCos, PairsGiveTheBitsOfSingleCalls) {
    const std::vector<double> angles = anglesOfEverySize();
    const auto bits = [](double x) { return std::bit_cast<std::uint64_t>(x); };
    for (std::size_t i = 0; i + 1 < angles.size(); ++i) {
        // Every hundredth pair has one angle beyond the bound.
        const double first = angles[i];
        const double second = i % 100 == 0 ? 3.0e5 + first : angles[angles.size() - 1 - i];
        const SinCosPair pair = sinCos(first, second);
        ASSERT_EQ(bits(pair.first.sin), bits(sinCos(first).sin)) << first;
        ASSERT_EQ(bits(pair.first.cos), bits(sinCos(first).cos)) << first;
        ASSERT_EQ(bits(pair.second.sin), bits(sinCos(second).sin)) << second;
        ASSERT_EQ(bits(pair.second.cos), bits(sinCos(second).cos)) << second;
    }
}

TEST(SinCos, OfASumFollowsFromThoseOfItsParts) {
    std::mt19937 random(2);
    std::uniform_real_distribution<double> angle(-10.0, 10.0);
    for (int i = 0; i < 1000; ++i) {
        const double a = angle(random);
        const double b = angle(random);
        const SinCos sum = addAngles(sinCos(a), sinCos(b));
        EXPECT_NEAR(sum.sin, std::sin(a + b), 4e-15);
        EXPECT_NEAR(sum.cos, std::cos(a + b), 4e-15);
    }
}

TEST(SinCos, WholeTurnsAreTakenOffAndTheSignStays) {
    for (const double x : {0.0, 1.0, -1.0, 6.2, -6.2, 7.0, -7.0, 628.0, -628.0, 1e5, -1e5, 1e9}) {
        const double rest = withoutTurns(x);
        EXPECT_LT(std::abs(rest), 6.2831853071795872) << x;
        EXPECT_GE(rest * x, 0.0) << x;
        EXPECT_NEAR(rest, std::fmod(x, 6.283185307179586477), 1e-15 * (1.0 + std::abs(x))) << x;
    }
}

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

TEST(ArcTangents, AreTrueOnTheAxesAndAtTheSeamsOfTheSeriesAndZeroWithoutADirection) {
    constexpr double tangentOfSixteenth = 0.41421356237309503;
    for (const double y : {0.0, 1.0, -1.0}) {
        for (const double x : {1.0, -1.0}) expectTrue(y, x);
    }
    expectTrue(1.0, 0.0);
    expectTrue(-1.0, 0.0);
    expectTrue(-0.0, -5.0);
    EXPECT_EQ(arcTangent(0.0, 0.0), 0.0);
    EXPECT_EQ(arcTangent(-0.0, 0.0), 0.0);
    for (const double t : {tangentOfSixteenth, 1.0 / tangentOfSixteenth, 1.0}) {
        for (const double sign : {1.0, -1.0}) {
            expectTrue(sign * std::nextafter(t, 0.0), 1.0);
            expectTrue(sign * t, -1.0);
            expectTrue(sign * std::nextafter(t, 2.0 * t), 1.0);
        }
    }
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

TEST(Angles, ArcTan2TurnsOnceAroundFromTheXAxis) {
    constexpr double pi = 3.14159265358979;
    for (int degrees = 0; degrees < 360; ++degrees) {
        const double radians = degrees * std::numbers::pi / 180.0;
        EXPECT_NEAR(ArcTan2(std::sin(radians), std::cos(radians)), radians, 1e-12) << degrees;
    }
    EXPECT_EQ(ArcTan2(0.0, 0.0), 0.0);
    EXPECT_EQ(ArcTan2(0.0, 2.0), 0.0);
    EXPECT_DOUBLE_EQ(ArcTan2(2.0, 0.0), pi / 2.0);
    EXPECT_DOUBLE_EQ(ArcTan2(0.0, -2.0), pi);
    EXPECT_DOUBLE_EQ(ArcTan2(-2.0, 0.0), 6.28318530717958 - pi / 2.0);
}

TEST(Angles, InverseFunctionsUndoSineAndCosine) {
    for (int degrees = -89; degrees <= 89; ++degrees) {
        const double radians = DegToRad(degrees);
        EXPECT_NEAR(RadToDeg(ArcSin(std::sin(radians))), degrees, 1e-6);
        EXPECT_NEAR(RadToDeg(ArcCos(std::sin(radians))), 90.0 - degrees, 1e-6);
    }
}

TEST(Angles, InverseFunctionsHaveNoValueAtOneAndBeyond) {
    const double notANumber = std::numeric_limits<double>::quiet_NaN();
    for (const double x : {1.0, -1.0, 1.5, -2.0, notANumber}) {
        EXPECT_THROW(ArcSin(x), std::domain_error) << x;
        EXPECT_THROW(ArcCos(x), std::domain_error) << x;
    }
}

}  // namespace
}  // namespace vantrace
