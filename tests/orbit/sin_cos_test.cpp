#include "orbit/sin_cos.h"

#include <bit>

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

TEST(SinCos, IsTrueToTheLastBitUpToItsBound) {
    for (const double x : anglesOfEverySize()) expectTrue(x, sinCos(x));
}

TEST(SinCos, IsTrueAroundEveryQuarterTurn) {
    // Where the reduction cancels most: the doubles next to multiples of a quarter of pi.
    for (int k = -60000; k <= 60000; k += 7) {
        const double x = k * 0.785398163397448309616;
        expectTrue(x, sinCos(x));
        expectTrue(std::nextafter(x, 1e9), sinCos(std::nextafter(x, 1e9)));
    }
}

TEST(SinCos, HasNoSeamAtTheBoundWhereTheLibraryTakesOver) {
    for (const double x :
         {std::nextafter(1e5, 0.0), 1e5, std::nextafter(1e5, 2e5), 123456.789, 1e15, 1e300}) {
        expectTrue(x, sinCos(x));
        expectTrue(-x, sinCos(-x));
    }
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

TEST(SinCos, OfSmallAnglesIsTrueOnBothSidesOfItsBound) {
    for (double x = -0.0201; x < 0.0201; x += 1.7e-6) expectTrue(x, sinCosSmall(x));
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

}  // namespace
}  // namespace vantrace
