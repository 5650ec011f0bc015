#include "tests/station/steering/steering_fixture.h"

namespace vantrace {
namespace {

/// Its end lies beyond 360 degrees or below 0, and it runs over less than half a turn.
ComingPass passThroughNorth(ShippedSky& sky) {
    for (ComingPass& pass : sky.passesOf("METEOR-M2_3", 20)) {
        const auto [least, most] = azimuthRange(pass.path);
        if (std::floor(least / 360.0) != std::floor(most / 360.0) && most - least <= 179.0) return pass;
    }
    throw std::runtime_error("none of the passes leads through north");
}

TEST_F(SteeringTest, APassThroughNorthGoesOverTheTopWhereTheRotatorCan) {
    restartRotator("0 360 0 180", 5);
    const ComingPass pass = passThroughNorth(sky);
    begin = plusSeconds(pass.start, 2.0);
    start();
    const auto jump = std::ranges::adjacent_find(pass.path, [](const PathPoint& a, const PathPoint& b) {
        return std::abs(a.direction.azimuthDeg - b.direction.azimuthDeg) > 180.0;
    });
    const double crossing = std::floor(jump->seconds);
    // Behind north the other way is as good, but for where the antenna is.
    run("METEOR-M2 3", 0, crossing + 10);
    rotatorDaemon.session.disconnected("closed", crossing + 10);
    rotatorDaemon.come(crossing + 20);
    run("METEOR-M2 3", crossing + 20, crossing + 30);
    give("", crossing + 30);
    run("METEOR-M2 3", crossing + 31, pass.lengthSeconds() - 4);
    const std::vector<double> all = azimuths();
    ASSERT_FALSE(all.empty());
    for (std::size_t i = 1; i < all.size(); ++i) ASSERT_LT(std::abs(all[i] - all[i - 1]), 30.0) << i;
    for (const std::string& command : rotatorDaemon.of("+P")) {
        EXPECT_GE(std::stod(command.substr(command.rfind(' '))), 90.0);
    }
}

TEST_F(SteeringTest, FromThePlanToTheLineAloneAndBackTheRotatorStaysOnItsTurn) {
    restartRotator("0 450 0 90", 5);
    const ComingPass pass = passThroughNorth(sky);
    begin = pass.start;
    start();
    const double length = pass.lengthSeconds();
    const double wild = std::floor(length / 2.0);
    run("METEOR-M2 3", 1, wild);
    // The line comes 12 degrees off for a while, as from another place.
    for (double second = wild; second < wild + 70.0 && second < length - 20.0; second += 1.0) {
        Direction off = pass.directionAt(second);
        off.elevationDeg += off.elevationDeg > 45.0 ? -12.0 : 12.0;
        give("SNMETEOR-M2_3 AZ" +
                 formatNumber(off.azimuthDeg - 360.0 * std::floor(off.azimuthDeg / 360.0), "0.00") + " EL" +
                 formatNumber(off.elevationDeg, "0.00") + " UP0 DN0 DO0",
             second);
    }
    EXPECT_EQ(tells("followed alone"), 1);
    run("METEOR-M2 3", wild + 70.0, length - 2.0);
    const std::vector<double> all = azimuths();
    ASSERT_GT(all.size(), 10U);
    for (std::size_t i = 1; i < all.size(); ++i) ASSERT_LT(std::abs(all[i] - all[i - 1]), 90.0) << i;
    EXPECT_EQ(tells("turns back"), 0);
}

TEST_F(SteeringTest, APlanMadeBeforeTheRotatorTellsWhereItStandsIsMadeAnew) {
    // On a whole second turn either end is as good, but for where it stands.
    rotatorDaemon.limits = "-180 540 0 90";
    rotatorDaemon.session.disconnected("closed", 0);
    const double rise = issPass.path.front().direction.azimuthDeg;
    begin = plusSeconds(issPass.start, -60.0);
    start();
    run("ISS (ZARYA)", 0, 5);
    const double stands = rise < 180.0 ? rise + 360.0 : rise;
    rotatorDaemon.answers["+p"] =
        "get_pos:\nAzimuth: " + formatNumber(stands, "0.00") + "\nElevation: 0.00\nRPRT 0\n";
    rotatorDaemon.come(5);
    serve(5);
    run("ISS (ZARYA)", 6, 10);
    ASSERT_EQ(azimuths().size(), 1U);
    EXPECT_NEAR(azimuths()[0], stands, 1.0);
}

TEST_F(SteeringTest, AzimuthsBelowZeroAreDoubtedOnceAndForAllByWhatTheRotatorDoes) {
    // Falling through north from the south-east, a pass has no way above 0 without a turn.
    const auto needsBelowZero = [](const ComingPass& pass) {
        const auto [least, most] = azimuthRange(pass.path);
        return pass.path.front().direction.azimuthDeg == most && most > 92.0 && least < -5.0;
    };
    std::vector<ComingPass> coming = sky.passesOf("METEOR-M2_3", 40);
    const auto pass = std::ranges::find_if(coming, needsBelowZero);
    ASSERT_NE(pass, coming.end());
    begin = pass->start;
    const double length = pass->lengthSeconds();
    rotatorDaemon.turnsDeg = 60.0;
    double now = 1000.0;
    for (const char* const kind : {"folds", "shows one circle", "shows all"}) {
        SCOPED_TRACE(kind);
        // Another rotator, with limits of its own.
        const bool folds = *kind == 'f';
        rotatorDaemon.foldsBelowZero = folds;
        rotatorDaemon.showsWholeCircleOnly = std::string_view(kind) == "shows one circle";
        now += 4000.0;
        restartRotator("-180 " + std::to_string(450.0 + now / 1e5) + " 0 90", now);
        start();
        for (double second = 1; second < length; second += 1.0) {
            // Whoever comes back in the middle goes on where he is.
            const double toEnd = std::floor(length) - second;
            if (toEnd == 25.0) rotatorDaemon.session.disconnected("closed", now + second);
            if (toEnd == 20.0) rotatorDaemon.come(now + second);
            m_steering->lineCame(lineAt("METEOR-M2 3", plusSeconds(begin, second)),
                                 plusSeconds(begin, second), now + second);
            serve(now + second);
        }
        const std::vector<double> all = azimuths();
        EXPECT_LT(std::ranges::min(all), 0.0);
        int turns = 0;
        for (std::size_t i = 1; i < all.size(); ++i) turns += std::abs(all[i] - all[i - 1]) > 180.0 ? 1 : 0;
        EXPECT_EQ(turns, folds ? 1 : 0);
        EXPECT_EQ(all.back() > 0.0, folds);
        EXPECT_EQ(tells("are left out"), 1) << "the one that folds";
    }
    SteeringOptions options;
    options.azimuthLimitsDeg = {-180, 450};
    EXPECT_FALSE(start(options).limits().isBelowZeroDoubtful) << "the user knows his rotator";
}

}  // namespace
}  // namespace vantrace
