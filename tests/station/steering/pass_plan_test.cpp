#include "station/steering/pass_plan.h"

#include "tests/station/steering/steering_sky.h"

namespace vantrace {
namespace {

constexpr RotatorLimits southStop{-180, 180, 0, 90};
constexpr RotatorLimits flipping{0, 360, 0, 180};
constexpr RotatorLimits doubtful{-180, 450, 0, 90, true};
constexpr RotatorLimits everything{-180, 540, 0, 180};

/// A path of even azimuth steps at one elevation, a point a second.
std::vector<PathPoint> arc(double fromDeg, double toDeg, double elevationDeg = 40.0) {
    std::vector<PathPoint> path;
    constexpr int steps = 600;
    for (int i = 0; i <= steps; ++i) {
        const double azimuth = fromDeg + (toDeg - fromDeg) * i / steps;
        path.push_back(
            {static_cast<double>(i), {azimuth - 360.0 * std::floor(azimuth / 360.0), elevationDeg}});
    }
    return path;
}

/// Where an antenna looks whose rotator stands so.
Direction lookOf(const RotatorPosition& position) {
    const bool isOver = position.elevationDeg > 90.0;
    const double azimuth = position.azimuthDeg + (isOver ? 180.0 : 0.0);
    return {azimuth - 360.0 * std::floor(azimuth / 360.0),
            isOver ? 180.0 - position.elevationDeg : position.elevationDeg};
}

/// What holds of every plan: it stays within the limits, looks at the satellite, and moves no further than
/// the satellite does, but for the turns that it tells.
void expectSound(const std::vector<PathPoint>& path, const RotatorLimits& limits, const PassPlan& plan) {
    ASSERT_EQ(plan.points.size(), path.size());
    std::size_t turns = 0;
    for (std::size_t i = 0; i < path.size(); ++i) {
        const RotatorPosition& at = plan.points[i].position;
        ASSERT_GE(at.azimuthDeg, limits.azimuthLeastDeg);
        ASSERT_LE(at.azimuthDeg, limits.azimuthMostDeg);
        ASSERT_GE(at.elevationDeg, limits.elevationLeastDeg);
        ASSERT_LE(at.elevationDeg, limits.elevationMostDeg);
        ASSERT_LE(angleBetween(lookOf(at), path[i].direction), limitSlackDeg + 0.2) << i;
        if (i == 0) continue;
        const RotatorPosition& before = plan.points[i - 1].position;
        const double moved = std::abs(at.azimuthDeg - before.azimuthDeg);
        const double real =
            std::abs(std::remainder(path[i].direction.azimuthDeg - path[i - 1].direction.azimuthDeg, 360.0));
        if (turns < plan.turns.size() && plan.turns[turns].seconds == path[i].seconds) {
            ++turns;
        } else {
            ASSERT_LE(moved, real + limitSlackDeg) << "an azimuth jumps without being told";
        }
    }
    EXPECT_EQ(turns, plan.turns.size());
    EXPECT_EQ(plan.unreachableSeconds, 0.0);
}

PassPlan planned(const std::vector<PathPoint>& path, const RotatorLimits& limits,
                 const std::optional<RotatorPosition>& from = std::nullopt) {
    PassPlan plan = planPass(path, limits, from);
    expectSound(path, limits, plan);
    return plan;
}

TEST(PassPlan, NorthIsCrossedByOverlapOrOverTheTopAndElseByOneTurn) {
    struct Case {
        RotatorLimits limits;
        std::size_t turns;
        RotatorPosition first;
        std::optional<RotatorPosition> from = std::nullopt;
    };
    const std::vector<PathPoint> throughNorth = arc(300, 440);
    for (const auto& [limits, turns, first, from] :
         {Case{plain, 1, {300, 40}}, Case{overlapping, 0, {300, 40}}, Case{flipping, 0, {120, 140}},
          Case{southStop, 0, {-60, 40}}, Case{doubtful, 0, {300, 40}, RotatorPosition{0, 0}}}) {
        const PassPlan plan = planned(throughNorth, limits, from);
        ASSERT_EQ(plan.turns.size(), turns);
        EXPECT_NEAR(plan.points[0].position.azimuthDeg, first.azimuthDeg, 1e-9);
        EXPECT_NEAR(plan.points[0].position.elevationDeg, first.elevationDeg, 1e-9);
        EXPECT_EQ(plan.points[0].isFlipped, first.elevationDeg > 90);
        if (turns == 0) continue;
        EXPECT_NEAR(plan.turns[0].from.azimuthDeg, 360.0, limitSlackDeg);
        EXPECT_NEAR(plan.turns[0].to.azimuthDeg, 0.0, 2 * limitSlackDeg);
    }
    // Falling azimuths from 80 through north to 280: only from 440 down is there room.
    const PassPlan back = planned(arc(80, -80), overlapping, RotatorPosition{70, 0});
    EXPECT_TRUE(back.turns.empty());
    EXPECT_NEAR(back.points[0].position.azimuthDeg, 440.0, 1e-9);
    // No way of 180 degrees from 320 on fits between 0 and 450: to save a turn the doubtful part is taken.
    const PassPlan saving = planned(arc(320, 500), doubtful, RotatorPosition{320, 0});
    EXPECT_TRUE(saving.turns.empty());
    EXPECT_NEAR(saving.points[0].position.azimuthDeg, -40.0, 1e-9);
}

TEST(PassPlan, OfEqualWaysTheNearOneAndNeverAFlipWithoutNeed) {
    const auto firstFrom = [](const RotatorPosition& from, const RotatorLimits& limits) {
        return planned(arc(20, 60), limits, from).points[0];
    };
    EXPECT_NEAR(firstFrom({10, 0}, overlapping).position.azimuthDeg, 20, 1e-9);
    EXPECT_NEAR(firstFrom({400, 0}, overlapping).position.azimuthDeg, 380, 1e-9);
    EXPECT_FALSE(firstFrom({200, 150}, everything).isFlipped);
}

TEST(PassPlan, AnUnavoidableTurnIsMadeWhereTheSatelliteIsLowest) {
    // 320 to 500 leaves a choice between 360 and 450 for the turn; the satellite sinks all the way.
    std::vector<PathPoint> path = arc(320, 500);
    for (PathPoint& point : path) point.direction.elevationDeg = 80.0 - point.seconds / 10.0;
    const PassPlan plan = planned(path, overlapping);
    ASSERT_EQ(plan.turns.size(), 1U);
    EXPECT_NEAR(plan.turns[0].from.azimuthDeg, 450.0, 2 * limitSlackDeg);
}

TEST(PassPlan, ALittleBeyondALimitIsWaitedForAtIt) {
    const PassPlan plan = planned(arc(30, -0.8), plain);
    EXPECT_TRUE(plan.turns.empty());
    EXPECT_EQ(plan.points.back().position.azimuthDeg, 0.0);
}

TEST(PassPlan, WhatTheRotatorCannotReachIsToldAndComeNearTo) {
    const RotatorLimits half{90, 270, 0, 90};
    const PassPlan plan = planPass(arc(60, 150), half, std::nullopt);
    EXPECT_NEAR(plan.unreachableSeconds, 200.0, 10.0);
    EXPECT_EQ(plan.points.front().position.azimuthDeg, 90.0);
    EXPECT_TRUE(plan.turns.empty());
    EXPECT_TRUE(planPass({}, half, std::nullopt).points.empty());
}

TEST(PassPlan, TheLinesDirectionIsTakenTheWayThatIsPlanned) {
    const PassPlan plan = planPass(arc(300, 440), overlapping, std::nullopt);
    const RotatorPosition at = plan.positionAt(300.4, {10.7, 40.3}, overlapping);
    EXPECT_NEAR(at.azimuthDeg, 370.7, 1e-9);
    EXPECT_NEAR(at.elevationDeg, 40.3, 1e-9);
    EXPECT_NEAR(plan.positionAt(-50, {299.0, 1}, overlapping).azimuthDeg, 299.0, 1e-9);
    const PassPlan over = planPass(arc(300, 440), flipping, std::nullopt);
    EXPECT_NEAR(over.positionAt(300, {10.0, 40.0}, flipping).azimuthDeg, 190.0, 1e-9);
    EXPECT_NEAR(over.positionAt(300, {10.0, -2.0}, flipping).elevationDeg, 180.0, 1e-9);
}

/// A pass of a low orbit, by all kinds of rotators.
void expectFollowed(const ComingPass& pass) {
    const auto [least, most] = azimuthRange(pass.path);
    const auto turnsOf = [&](const RotatorLimits& limits) { return planned(pass.path, limits).turns.size(); };
    EXPECT_LE(turnsOf(plain), 1U) << "it crosses each end once at most";
    EXPECT_LE(turnsOf(southStop), 1U);
    EXPECT_LE(turnsOf(overlapping), most - least < 90.0 ? 0U : 1U);
    EXPECT_LE(turnsOf(flipping), most - least < 179.0 ? 0U : 1U);
    EXPECT_EQ(turnsOf(everything), 0U);
}

TEST(PassPlan, PassesOfRealSatellitesAreFollowedWithoutAJump) {
    // Where passes lead through all parts of the sky.
    constexpr std::pair<double, double> sites[]{{52.0, 5.0}, {-33.9, 151.2}, {78.2, 15.6}, {0.5, 101.4}};
    int passes = 0;
    int turned = 0;
    for (const auto& [latitude, longitude] : sites) {
        ShippedSky sky(latitude, longitude);
        for (const char* const name :
             {"ISS_(ZARYA)", "HST", "NOAA_20_(JPSS-1)", "METEOR-M2_3", "FUNCUBE-1_(AO-73)", "CSS_(TIANHE)"}) {
            for (const ComingPass& pass : sky.passesOf(name, 12)) {
                ++passes;
                expectFollowed(pass);
                ASSERT_FALSE(::testing::Test::HasFailure()) << name << " " << isoText(pass.start, 0);
                if (!planPass(pass.path, plain, std::nullopt).turns.empty()) ++turned;
            }
        }
    }
    EXPECT_GT(passes, 200);
    EXPECT_GT(turned, 20) << "else the test says little";
}

TEST(PassPlan, ASecondAtTheZenithDoesntWrapTheAzimuthRound) {
    PassPlan plan;
    plan.points = {{0.0, {10, 89}, false}, {1.0, {185, 89}, false}, {2.0, {190, 80}, false}};
    EXPECT_NEAR(plan.positionAt(0.9, {192, 89}, plain).azimuthDeg, 192, 1e-9);
    EXPECT_NEAR(plan.positionAt(0.1, {12, 89}, plain).azimuthDeg, 12, 1e-9);
    // Behind a turn the point before has the say until the turn comes.
    plan.points = {{0.0, {359, 40}, false}, {1.0, {1, 40}, false}};
    EXPECT_NEAR(plan.positionAt(0.9, {0.8, 40}, plain).azimuthDeg, 360, 1e-9);
    EXPECT_NEAR(plan.positionAt(1.0, {1.0, 40}, plain).azimuthDeg, 1, 1e-9);
}

}  // namespace
}  // namespace vantrace
