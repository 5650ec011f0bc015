#include "orbit/angles.h"

#include "tests/support/testing.h"

namespace vantrace {
namespace {

TEST(Angles, ArcTan2TurnsOnceAroundFromTheXAxis) {
    for (int degrees = 0; degrees < 360; ++degrees) {
        const double radians = degrees * std::numbers::pi / 180.0;
        EXPECT_NEAR(ArcTan2(std::sin(radians), std::cos(radians)), radians, 1e-12) << degrees;
    }
}

TEST(Angles, ArcTan2OnTheAxes) {
    EXPECT_EQ(ArcTan2(0.0, 0.0), 0.0);
    EXPECT_EQ(ArcTan2(0.0, 2.0), 0.0);
    EXPECT_DOUBLE_EQ(ArcTan2(2.0, 0.0), 3.14159265358979 / 2.0);
    EXPECT_DOUBLE_EQ(ArcTan2(0.0, -2.0), 3.14159265358979);
    EXPECT_DOUBLE_EQ(ArcTan2(-2.0, 0.0), 6.28318530717958 - 3.14159265358979 / 2.0);
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
