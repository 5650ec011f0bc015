#include "tests/station/steering/steering_fixture.h"

namespace vantrace {
namespace {

TEST_F(SteeringTest, APassThroughNorthGoesOverTheTopWhereTheRotatorCan) {
    rotatorDaemon.limits = "0 360 0 180";
    rotatorDaemon.session.disconnected("restarted", 0);
    rotatorDaemon.session.tick(5);
    rotatorDaemon.session.connected(5);
    serve(5);
    for (const ComingPass& pass : sky.passesOf("METEOR-M2_3", 12)) {
        const auto [least, most] = azimuthRange(pass.path);
        if (std::floor(least / 360.0) == std::floor(most / 360.0) || most - least > 179.0) continue;
        begin = plusSeconds(pass.start, 2.0);
        rotatorDaemon.commands.clear();
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
        double last = -1.0;
        for (const std::string& command : rotatorDaemon.of("+P")) {
            const double azimuth = std::stod(command.substr(3));
            ASSERT_TRUE(last < 0.0 || std::abs(azimuth - last) < 30.0) << command;
            EXPECT_GE(std::stod(command.substr(command.rfind(' '))), 90.0);
            last = azimuth;
        }
        EXPECT_GE(last, 0.0);
        return;
    }
    FAIL() << "none of the passes leads through north";
}

TEST_F(SteeringTest, FromThePlanToTheLineAloneAndBackTheRotatorStaysOnItsTurn) {
    rotatorDaemon.limits = "0 450 0 90";
    rotatorDaemon.session.disconnected("restarted", 0);
    rotatorDaemon.come(5);
    serve(5);
    for (const ComingPass& pass : sky.passesOf("METEOR-M2_3", 20)) {
        const auto [least, most] = azimuthRange(pass.path);
        // It runs through north, so that its end lies beyond 360 or below 90.
        if (std::floor(least / 360.0) == std::floor(most / 360.0) || most - least > 179.0) continue;
        begin = pass.start;
        rotatorDaemon.commands.clear();
        start();
        const double length = pass.lengthSeconds();
        const double wild = std::floor(length / 2.0);
        run("METEOR-M2 3", 1, wild);
        const auto azimuths = [&] {
            std::vector<double> found;
            for (const std::string& command : rotatorDaemon.of("+P"))
                found.push_back(std::stod(command.substr(3)));
            return found;
        };
        // The line comes 12 degrees off for a while, as from another place.
        for (double second = wild; second < wild + 70.0 && second < length - 20.0; second += 1.0) {
            Direction off = pass.directionAt(second);
            off.elevationDeg = off.elevationDeg > 45.0 ? off.elevationDeg - 12.0 : off.elevationDeg + 12.0;
            give("SNMETEOR-M2_3 AZ" +
                     formatNumber(off.azimuthDeg - 360.0 * std::floor(off.azimuthDeg / 360.0), "0.00") +
                     " EL" + formatNumber(off.elevationDeg, "0.00") + " UP0 DN0 DO0",
                 second);
        }
        EXPECT_EQ(tells("followed alone"), 1);
        run("METEOR-M2 3", wild + 70.0, length - 2.0);
        const std::vector<double> all = azimuths();
        ASSERT_GT(all.size(), 10U);
        for (std::size_t i = 1; i < all.size(); ++i) {
            ASSERT_LT(std::abs(all[i] - all[i - 1]), 90.0) << i << " of " << all.size();
        }
        EXPECT_EQ(tells("turns back"), 0);
        return;
    }
    FAIL() << "none of the passes leads through north";
}

TEST_F(SteeringTest, APlanMadeBeforeTheRotatorTellsWhereItStandsIsMadeAnew) {
    // On a whole second turn either end is as good, but for where it stands.
    rotatorDaemon.limits = "-180 540 0 90";
    rotatorDaemon.session.disconnected("closed", 0);
    const ComingPass pass = sky.passesOf("ISS_(ZARYA)", 1).front();
    const double rise = pass.path.front().direction.azimuthDeg;
    begin = plusSeconds(pass.start, -60.0);
    start();
    run("ISS (ZARYA)", 0, 5);
    const double stands = rise < 180.0 ? rise + 360.0 : rise;
    rotatorDaemon.answers["+p"] =
        "get_pos:\nAzimuth: " + formatNumber(stands, "0.00") + "\nElevation: 0.00\nRPRT 0\n";
    rotatorDaemon.come(5);
    serve(5);
    run("ISS (ZARYA)", 6, 10);
    ASSERT_FALSE(rotatorDaemon.of("+P").empty());
    EXPECT_NEAR(std::stod(rotatorDaemon.of("+P").front().substr(3)), stands, 1.0);
    EXPECT_EQ(rotatorDaemon.of("+P").size(), 1U);
}

TEST_F(SteeringTest, AzimuthsBelowZeroAreDoubtedOnceAndForAllByWhatTheRotatorDoes) {
    // Falling through north from the south-east, a pass has no way above 0 without a turn.
    const auto needsBelowZero = [](const ComingPass& pass) {
        const auto [least, most] = azimuthRange(pass.path);
        return pass.path.front().direction.azimuthDeg == most && most > 92.0 && least < -5.0;
    };
    std::vector<ComingPass> all = sky.passesOf("METEOR-M2_3", 40);
    const auto pass = std::ranges::find_if(all, needsBelowZero);
    ASSERT_NE(pass, all.end());
    begin = pass->start;
    const double length = pass->lengthSeconds();
    rotatorDaemon.turnsDeg = 60.0;
    for (const bool folds : {true, false}) {
        // Another rotator, with limits of its own.
        rotatorDaemon.foldsBelowZero = folds;
        rotatorDaemon.limits = folds ? "-180 451 0 90" : "-180 450 0 90";
        const double now = folds ? 1000.0 : 5000.0;
        rotatorDaemon.session.disconnected("restarted", now - 5);
        rotatorDaemon.come(now);
        serve(now);
        rotatorDaemon.commands.clear();
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
        int belowZero = 0, turns = 0;
        double last = 100.0;
        for (const std::string& command : rotatorDaemon.of("+P")) {
            const double azimuth = std::stod(command.substr(3));
            if (azimuth < 0.0) ++belowZero;
            if (std::abs(azimuth - last) > 180.0) ++turns;
            last = azimuth;
        }
        EXPECT_GT(belowZero, 0);
        EXPECT_EQ(turns, folds ? 1 : 0);
        EXPECT_EQ(last > 0.0, folds);
        EXPECT_EQ(tells("are left out"), 1) << "the one that folds";
    }
    SteeringOptions options;
    options.azimuthLimitsDeg = {-180, 450};
    EXPECT_FALSE(start(options).limits().isBelowZeroDoubtful) << "the user knows his rotator";
}

}  // namespace
}  // namespace vantrace
