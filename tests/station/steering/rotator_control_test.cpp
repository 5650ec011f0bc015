#include "station/steering/rotator_control.h"

#include "tests/station/steering/fake_daemons.h"

namespace vantrace {
namespace {

class RotatorControlTest : public ::testing::Test {
  protected:
    Texts pointedAt() {
        daemon.serve(0);
        return daemon.of("+P");
    }

    Texts told;
    FakeRotatorDaemon daemon{"rotator", told};
    RotatorControl rotator{daemon.session, 2.0, [this](std::string_view text) { told.emplace_back(text); }};
};

TEST_F(RotatorControlTest, SmallMovementsAreLeftOut) {
    daemon.arrive(0);
    for (int i = 0; i <= 40; ++i) {
        rotator.point({100.0 + 0.1 * i, 20.0});
        daemon.serve(0);
    }
    EXPECT_EQ(pointedAt(), (Texts{"+P 100.00 20.00", "+P 102.00 20.00", "+P 104.00 20.00"}));
    rotator.point({104.5, 22.0});
    rotator.pointExactly({104.5, 22.1});
    rotator.pointExactly({104.5, 22.1});
    EXPECT_EQ(pointedAt().size(), 5U);
}

TEST_F(RotatorControlTest, ADaemonThatComesBackIsToldThePositionAgain) {
    rotator.point({100, 20});
    daemon.arrive(0);
    EXPECT_TRUE(pointedAt().empty()) << "what was wanted before it came is old";
    rotator.point({100, 20});
    EXPECT_EQ(pointedAt().size(), 1U);
    daemon.session.disconnected("closed", 1);
    EXPECT_FALSE(rotator.present());
    daemon.arrive(3);
    rotator.point({100, 20});
    EXPECT_EQ(pointedAt().size(), 2U);
}

TEST_F(RotatorControlTest, LimitsAndPositionAreRead) {
    daemon.limits = "-180.000000 450.000000 0.000000 180.000000";
    int limitsTold = 0;
    rotator.onLimits = [&] { ++limitsTold; };
    daemon.arrive(0);
    ASSERT_TRUE(rotator.limits());
    EXPECT_EQ(*rotator.limits(), (RotatorLimits{-180, 450, 0, 180}));
    EXPECT_EQ(limitsTold, 1);
    rotator.point({370, 45});
    rotator.tick(10);
    daemon.serve(10);
    ASSERT_TRUE(rotator.present());
    EXPECT_EQ(rotator.present()->azimuthDeg, 370.0);
    rotator.tick(10.2);
    EXPECT_EQ(daemon.of("+p").size(), 2U) << "at the beginning, and not at every tick";
}

TEST_F(RotatorControlTest, AzimuthsBelowZeroEndWhereTheRotatorStandsATurnAboveThem) {
    double now = 0.0;
    for (const auto& [folds, showsWholeCircleOnly] :
         {std::pair{false, false}, std::pair{false, true}, std::pair{true, false}}) {
        FakeRotatorDaemon fake{"rotator", told};
        RotatorControl control{fake.session, 2.0, [this](std::string_view t) { told.emplace_back(t); }};
        fake.limits = "-180 450 0 90";
        fake.foldsBelowZero = folds;
        fake.showsWholeCircleOnly = showsWholeCircleOnly;
        fake.turnsDeg = 12.0;
        control.limitsInForce = [&] {
            RotatorLimits limits = *control.limits();
            limits.isBelowZeroDoubtful = limits.azimuthLeastDeg < 0.0 && !control.goesBelowZero();
            return limits;
        };
        const double start = now;
        control.tick(start);
        fake.arrive(start);
        for (; now < start + 70.0; ++now) {
            control.point({-40.0 - 0.02 * (now - start), 20});
            control.tick(now);
            fake.serve(now);
            const bool isLeft = control.limits()->azimuthLeastDeg == 0.0;
            EXPECT_FALSE(isLeft && now < start + 40.0) << "it may be on its way";
        }
        EXPECT_EQ(control.goesBelowZero(), !folds);
        EXPECT_NEAR(control.present()->azimuthDeg, folds ? 319.0 : -41.0, 1.5);
        EXPECT_EQ(control.limits()->azimuthLeastDeg, folds ? 0.0 : -180.0);
        fake.session.disconnected("closed", now);
        fake.arrive(now + 30);
        EXPECT_EQ(control.limits()->azimuthLeastDeg, folds ? 0.0 : -180.0) << "what the driver says is known";
        EXPECT_EQ(control.goesBelowZero(), !folds);
        now += 60.0;
    }
    EXPECT_EQ(std::ranges::count_if(told, [](const std::string& t) { return t.ends_with("are left out"); }),
              1);
}

TEST_F(RotatorControlTest, APlaceOfRestIsTakenByWholeTurnsBeforeItIsHeldToTheLimits) {
    for (const auto& [limits, place, command] :
         {std::tuple{"0 360 0 90", RotatorPosition{-30, 0}, "+P 330.00 0.00"},
          std::tuple{"10 90 0 90", RotatorPosition{355, 0}, "+P 10.00 0.00"},
          std::tuple{"-180 180 0 90", RotatorPosition{270, 95}, "+P -90.00 90.00"},
          std::tuple{"0 450 0 90", RotatorPosition{400, 0}, "+P 400.00 0.00"},
          std::tuple{"10 90 0 90", RotatorPosition{-5, 0}, "+P 10.00 0.00"}}) {
        FakeRotatorDaemon fake{"rotator", told};
        RotatorControl control{fake.session, 2.0, [](std::string_view) {}};
        fake.limits = limits;
        fake.arrive(0);
        control.park(place);
        fake.serve(0);
        EXPECT_EQ(fake.commands.back(), command) << limits;
    }
}

TEST_F(RotatorControlTest, LimitsThatMakeNoSenseAreNone) {
    for (const char* const limits : {"0 0 0 90", "360 0 0 90", "0 1e9 0 90", "x 360 0 90", "0 360 90 0"}) {
        daemon.limits = limits;
        daemon.arrive(0);
        daemon.session.disconnected("closed", 0);
        daemon.session.tick(100);
        EXPECT_FALSE(rotator.limits()) << limits;
    }
}

TEST_F(RotatorControlTest, ARefusalIsToldOnceAndTheCommandTriedAgain) {
    daemon.arrive(0);
    daemon.answers["+P"] = "set_pos:\nRPRT -1\n";
    for (int i = 0; i < 3; ++i) {
        rotator.point({100, 20});
        daemon.serve(i);
    }
    EXPECT_EQ(pointedAt().size(), 3U);
    EXPECT_EQ(std::ranges::count(told, "the rotator refuses P 100.00 20.00: RPRT -1 (invalid parameter)"), 1);
}

TEST_F(RotatorControlTest, StopOvertakesAPositionThatWaits) {
    daemon.arrive(0);
    rotator.point({100, 20});
    rotator.point({150, 20});
    rotator.stop();
    daemon.serve(0);
    EXPECT_EQ(daemon.of("+S").size(), 1U);
    EXPECT_EQ(pointedAt(), (Texts{"+P 100.00 20.00"}));
    rotator.park(std::nullopt);
    daemon.serve(0);
    EXPECT_EQ(daemon.commands.back(), "+K");
}

TEST_F(RotatorControlTest, NothingMovesBeforeTheDaemonHasToldLimitsAndPositionOrRefused) {
    daemon.come(0);
    rotator.point({100, 20});
    EXPECT_EQ(daemon.transport.sent, (Texts{"+\\dump_state\n"}));
    daemon.session.received("RPRT -11\n", 0);
    rotator.point({100, 20});
    EXPECT_FALSE(rotator.isReady());
    daemon.session.received("RPRT -11\n", 0);
    EXPECT_TRUE(rotator.isReady());
    rotator.point({100, 20});
    EXPECT_EQ(daemon.transport.sent.back(), "+P 100.00 20.00\n");
}

TEST_F(RotatorControlTest, TheRestIsTriedAgainUntilItIsTakenOrSomethingElseIsWanted) {
    const auto ticks = [this](double from, double to) {
        for (double now = from; now < to; now += 0.5) {
            rotator.tick(now);
            daemon.serve(now);
        }
    };
    rotator.park(RotatorPosition{400, -5});
    EXPECT_TRUE(pointedAt().empty()) << "its daemon is away";
    daemon.arrive(0);
    daemon.answers["+P"] = "set_pos:\nRPRT -9\n";
    ticks(0, 10);
    EXPECT_GE(pointedAt().size(), 3U);
    EXPECT_LE(pointedAt().size(), 6U);
    EXPECT_EQ(pointedAt().back(), "+P 40.00 0.00") << "turned into the limits";
    EXPECT_EQ(told.size(), 2U) << "connected, and refused once";
    daemon.answers.clear();
    ticks(10, 20);
    const std::size_t all = pointedAt().size();
    ticks(20, 30);
    EXPECT_EQ(pointedAt().size(), all) << "once it has been taken it rests";
    daemon.answers["+K"] = "park:\nRPRT -9\n";
    rotator.park(std::nullopt);
    ticks(30, 34);
    rotator.point({100, 20});
    const std::size_t parks = daemon.of("+K").size();
    ticks(34, 40);
    EXPECT_EQ(daemon.of("+K").size(), parks) << "the next target takes its place";
    EXPECT_EQ(pointedAt().back(), "+P 100.00 20.00");
}

}  // namespace
}  // namespace vantrace
