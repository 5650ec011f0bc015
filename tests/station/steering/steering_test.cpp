#include "tests/station/steering/steering_fixture.h"

namespace vantrace {
namespace {

TEST_F(SteeringTest, AWholePassFromTheWaitToThePark) {
    begin = plusSeconds(issPass.start, -300.0);
    start(parkingAt({90, 45}));
    run("ISS (ZARYA)", 0, 115);
    EXPECT_TRUE(rotatorDaemon.of("+P").empty()) << "long before the rise nothing moves";
    EXPECT_TRUE(radioDaemon.of("+F").empty());
    run("ISS (ZARYA)", 115, 299);
    ASSERT_EQ(rotatorDaemon.of("+P").size(), 1U) << "it waits where the pass begins";
    const double riseAzimuth = std::stod(rotatorDaemon.of("+P")[0].substr(3));
    EXPECT_NEAR(std::remainder(riseAzimuth - issPass.path.front().direction.azimuthDeg, 360.0), 0.0, 0.1);
    EXPECT_GT(radioDaemon.of("+F").size(), 0U);
    run("ISS (ZARYA)", 299, 300 + issPass.lengthSeconds() + 10);
    EXPECT_EQ(rotatorDaemon.of("+P").back(), "+P 90.00 45.00");
    EXPECT_GT(rotatorDaemon.of("+P").size(), 20U);
    EXPECT_LT(rotatorDaemon.of("+P").size(), 200U) << "the dead band leaves most seconds out";
    EXPECT_EQ(radioDaemon.of("+S"), (Texts{"+S 1 VFOB", "+S 0 VFOA"}));
    EXPECT_EQ(tells("the pass is over"), 1);
    EXPECT_EQ(tells("waiting for the rise"), 1);
    const std::size_t tunings = radioDaemon.of("+F").size();
    run("ISS (ZARYA)", 300 + issPass.lengthSeconds() + 10, 300 + issPass.lengthSeconds() + 60);
    EXPECT_EQ(radioDaemon.of("+F").size(), tunings) << "after the set the radio is the user's";
    EXPECT_LE(passes.looks, 3);
}

TEST_F(SteeringTest, TheUsersLimitsStandInPlaceOfTheDaemons) {
    SteeringOptions options;
    options.azimuthLimitsDeg = {0, 450};
    EXPECT_EQ(start(options).limits(), (RotatorLimits{0, 450, 0, 90}));
    EXPECT_EQ(start().limits(), (RotatorLimits{0, 360, 0, 90}));
}

TEST_F(SteeringTest, ANameThatNobodyKnowsIsFollowedByItsLine) {
    start();
    give("SNNOBODY AZ350.00 EL-30.00 UP0 DN145800000 DO0", 0);
    EXPECT_TRUE(rotatorDaemon.of("+P").empty());
    for (int second = 1; second < 30; ++second) {
        give("SNNOBODY AZ" + std::to_string((349 + second) % 360) + ".00 EL10.00 UP0 DN145800000 DO0",
             second);
    }
    EXPECT_GT(rotatorDaemon.of("+P").size(), 5U);
    EXPECT_EQ(tells("followed alone"), 1);
    EXPECT_EQ(tells("turns back"), 1);
    EXPECT_EQ(radioDaemon.of("+F").size(), 1U);
    give("SNNOBODY AZ20.00 EL-9.00 UP0 DN145800000 DO0", 30);
    EXPECT_EQ(tells("the pass is over"), 1);
}

TEST_F(SteeringTest, ALineFromAnotherPlaceIsFollowedAndNotItsPass) {
    begin = plusSeconds(issPass.start, 60.0);
    start();
    const double elsewhere = issPass.directionAt(60.0).azimuthDeg + 90.0;
    const std::string azimuth = formatNumber(std::fmod(elsewhere, 360.0), "0.00");
    for (int second = 0; second < 70; ++second) {
        give("SNISS_(ZARYA) AZ" + azimuth + " EL50.00 UP0 DN0 DO0", second);
        EXPECT_EQ(tells("another place in the sky"), second < 4 ? 0 : 1) << second;
    }
    EXPECT_EQ(tells("the pass of"), 1) << "a second look tells nothing new";
    ASSERT_EQ(rotatorDaemon.of("+P").size(), 1U);
    EXPECT_EQ(rotatorDaemon.of("+P")[0], "+P " + azimuth + " 50.00");
}

TEST_F(SteeringTest, TheMoonMovesTheRotatorAlone) {
    const ComingPass moon = sky.passesOf("moon", 1).front();
    begin = plusSeconds(moon.start, 3600.0);
    start();
    const Direction at = moon.directionAt(3600.0);
    give("SNmoon AZ" + formatNumber(at.azimuthDeg, "0.00") + " EL" + formatNumber(at.elevationDeg, "0.00") +
             " DO-35.5",
         0);
    EXPECT_EQ(rotatorDaemon.of("+P").size(), 1U);
    EXPECT_EQ(radioDaemon.of("+F").size() + radioDaemon.of("+I").size(), 0U);
    EXPECT_EQ(tells("followed alone"), 0);
}

TEST_F(SteeringTest, WhenNoLineComesEverythingRestsUntilOneDoes) {
    Steering& steering = start();
    give(nobody, 0);
    steering.tick(4.9);
    EXPECT_EQ(tells("no line for 5 seconds"), 0);
    steering.tick(5.1);
    steering.tick(6);
    serve(6);
    EXPECT_EQ(tells("no line for 5 seconds"), 1);
    EXPECT_EQ(rotatorDaemon.of("+S").size(), 1U);
    give("rubbish", 7);
    EXPECT_EQ(rotatorDaemon.of("+P").size(), 1U);
    give(nobody, 8);
    EXPECT_EQ(rotatorDaemon.of("+P").size(), 2U);
    EXPECT_EQ(radioDaemon.of("+F").size(), 2U);
    EXPECT_EQ(tells("lines come again"), 1);
}

TEST_F(SteeringTest, ALinkThatIsSwitchedOffAndTheEndStopTheRotatorOnce) {
    Steering& steering = start();
    give("", 0);
    EXPECT_EQ(rotatorDaemon.of("+S").size(), 0U) << "what never moved isn't stopped";
    give(nobody, 1);
    give("", 2);
    give("", 3);
    EXPECT_EQ(rotatorDaemon.of("+S").size(), 1U);
    EXPECT_EQ(tells("switched off"), 1);
    steering.stop();
    serve(4);
    EXPECT_EQ(rotatorDaemon.of("+S").size(), 1U);
}

TEST_F(SteeringTest, AFloodOfNamesIsLookedUpNowAndThenAndOneOfHostileLinesIsOneRemark) {
    start();
    for (int i = 0; i < 1000; ++i) give("SN\x1b[31m AZ1 EL1 UP0 DN0 DO0", 0.001 * i);
    EXPECT_EQ(tells("a line is left out"), 1);
    EXPECT_TRUE(rotatorDaemon.of("+P").empty());
    for (int i = 0; i < 2000; ++i) {
        give("SNSAT" + std::to_string(i) + " AZ100.00 EL30.00 UP0 DN0 DO0", 1.0 + 0.001 * i);
    }
    EXPECT_LE(passes.looks, 3);
    EXPECT_LE(tells("the line is of"), 3);
}

TEST_F(SteeringTest, ARestThatHasBegunIsNotStopped) {
    begin = plusSeconds(issPass.end, -30.0);
    Steering& steering = start(parkingAt({500, 170}));
    run("ISS (ZARYA)", 0, 40);
    EXPECT_EQ(rotatorDaemon.of("+P").back(), "+P 140.00 90.00") << "turned and held into the limits";
    give("", 41);
    give(lineAt("ISS (ZARYA)", plusSeconds(begin, 42)), 42);
    steering.stop();
    serve(43);
    EXPECT_TRUE(rotatorDaemon.of("+S").empty());
}

TEST_F(SteeringTest, TheRestComesWhenTheDaemonIsBack) {
    begin = plusSeconds(issPass.end, -30.0);
    SteeringOptions options;
    options.atLoss = SteeringOptions::AtLoss::parkByDaemon;
    start(options);
    run("ISS (ZARYA)", 0, 20);
    rotatorDaemon.session.disconnected("closed", 20);
    run("ISS (ZARYA)", 20, 40);
    EXPECT_TRUE(rotatorDaemon.of("+K").empty());
    rotatorDaemon.come(40);
    rotatorDaemon.answers["+K"] = "park:\nRPRT -6\n";
    run("ISS (ZARYA)", 40, 50);
    EXPECT_GE(rotatorDaemon.of("+K").size(), 2U);
    rotatorDaemon.answers.clear();
    run("ISS (ZARYA)", 50, 55);
    const std::size_t parks = rotatorDaemon.of("+K").size();
    run("ISS (ZARYA)", 55, 65);
    EXPECT_EQ(rotatorDaemon.of("+K").size(), parks);
}

TEST_F(SteeringTest, AnotherNameThatIsntNearLetsTheRotatorRest) {
    begin = plusSeconds(issPass.start, 60.0);
    start(parkingAt({90, 45}));
    run("ISS (ZARYA)", 0, 10);
    give("SNNOBODY AZ200.00 EL-30.00 UP0 DN145800000 DO0", 10);
    EXPECT_EQ(rotatorDaemon.of("+P").back(), "+P 90.00 45.00");
}

TEST_F(SteeringTest, TheMoonBetweenTwoSatellitesLeavesTheRadioToTheUser) {
    start();
    give(nobody, 0);
    ASSERT_EQ(radioDaemon.of("+I").size(), 1U);
    give("SNmoon AZ100.00 EL30.00 DO0", 2);
    give("SNmoon AZ100.00 EL30.00 DO0", 3);
    EXPECT_EQ(radioDaemon.commands.back(), "+S 0 VFOA");
    give(nobody, 4);
    EXPECT_EQ(radioDaemon.of("+V").size(), 2U);
    EXPECT_EQ(radioDaemon.of("+F").size(), 2U) << "the user may have turned the knob";
}

}  // namespace
}  // namespace vantrace
