#include "station/steering/lone_follower.h"

#include "tests/station/steering/steering_sky.h"

namespace vantrace {
namespace {

Direction at(double azimuthDeg) {
    return {azimuthDeg - 360.0 * std::floor(azimuthDeg / 360.0), 30.0};
}

TEST(LoneFollower, WaitsForTheMovementWhereThereIsAChoice) {
    LoneFollower falling;
    EXPECT_FALSE(falling.follow(at(80), overlapping));
    EXPECT_NEAR(falling.follow(at(79), overlapping)->azimuthDeg, 439.0, 1e-9) << "there is room below";
    LoneFollower rising;
    EXPECT_FALSE(rising.follow(at(80), overlapping));
    EXPECT_NEAR(rising.follow(at(81), overlapping)->azimuthDeg, 81.0, 1e-9);
    LoneFollower single;
    EXPECT_NEAR(single.follow(at(200), overlapping)->azimuthDeg, 200.0, 1e-9) << "without a choice at once";
}

TEST(LoneFollower, DoubtfulAzimuthsAreGoneToOnlyByTheWay) {
    constexpr RotatorLimits doubtful{-180, 450, 0, 90, true};
    LoneFollower follower;
    follower.follow(at(10), doubtful);
    EXPECT_NEAR(follower.follow(at(9), doubtful)->azimuthDeg, 369.0, 1e-9) << "its room below is certain";
    LoneFollower beyond;
    beyond.goOnFrom({-179, 30});
    EXPECT_NEAR(beyond.follow(at(-182), doubtful)->azimuthDeg, 178.0, 1e-9);
    EXPECT_TRUE(beyond.hasTurned());
}

TEST(LoneFollower, GoesOnThroughNorthWhereItCanAndTurnsOnceWhereItCannot) {
    LoneFollower overlap;
    LoneFollower turning;
    int turns = 0;
    double last = 350.0;
    for (double azimuth = 350.0; azimuth < 430.0; azimuth += 1.0) {
        const auto position = overlap.follow(at(azimuth), overlapping);
        ASSERT_TRUE(position);
        ASSERT_LE(std::abs(position->azimuthDeg - last), 1.01);
        last = position->azimuthDeg;
        const auto plainPosition = turning.follow(at(azimuth), plain);
        ASSERT_TRUE(plainPosition);
        ASSERT_GE(plainPosition->azimuthDeg, 0.0);
        ASSERT_LE(plainPosition->azimuthDeg, 360.0);
        if (turning.hasTurned()) ++turns;
    }
    EXPECT_EQ(turns, 1);
    EXPECT_FALSE(overlap.hasTurned());
}

TEST(LoneFollower, KeepsLookingOverTheTopForAsLongAsItCan) {
    constexpr RotatorLimits flipping{0, 360, 0, 180};
    LoneFollower follower;
    follower.goOnFrom({190, 140});
    EXPECT_EQ(follower.follow({11, 40}, flipping), (RotatorPosition{191, 140}));
    EXPECT_EQ(follower.follow({12, -1}, flipping), (RotatorPosition{192, 180})) << "it waits at the horizon";
    EXPECT_FALSE(follower.hasTurned());
    EXPECT_FALSE(follower.isOutOfReach());
    EXPECT_EQ(follower.follow({13, 40}, plain), (RotatorPosition{13, 40}));
    EXPECT_TRUE(follower.hasTurned()) << "told, for it swings by half a turn";
    EXPECT_EQ(follower.follow({14, 40}, flipping), (RotatorPosition{14, 40}));
    EXPECT_FALSE(follower.hasTurned());
}

TEST(LoneFollower, GoesOnFromWhereThePlanHasLeftItAndTellsWhatIsOutOfReach) {
    LoneFollower follower;
    follower.goOnFrom({438, 30});
    EXPECT_NEAR(follower.follow(at(79), overlapping)->azimuthDeg, 439.0, 1e-9);
    EXPECT_FALSE(follower.hasTurned());
    EXPECT_FALSE(follower.isOutOfReach());
    constexpr RotatorLimits narrow{90, 270, 10, 90};
    LoneFollower held;
    EXPECT_NEAR(held.follow({280, 30}, narrow)->azimuthDeg, 270.0, 1e-9);
    EXPECT_TRUE(held.isOutOfReach());
    held.follow({200, -2}, narrow);
    EXPECT_FALSE(held.isOutOfReach()) << "below the horizon nothing is missed";
    held.follow({200, 5}, narrow);
    EXPECT_TRUE(held.isOutOfReach());
}

}  // namespace
}  // namespace vantrace
