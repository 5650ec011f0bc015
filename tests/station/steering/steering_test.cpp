#include "station/steering/steering.h"

#include <algorithm>

#include "core/numbers.h"
#include "tests/station/steering/fake_daemons.h"
#include "tests/station/steering/steering_sky.h"

namespace vantrace {
namespace {

using Texts = std::vector<std::string>;

class SkyPasses final : public PassSource {
  public:
    explicit SkyPasses(OrbitEngine& engine) : m_engine(engine) {}
    std::optional<ComingPass> passOf(std::string_view name, const Instant& from,
                                     std::string& reason) override {
        ++looks;
        return comingPass(m_engine, name, from, reason);
    }
    int looks = 0;

  private:
    OrbitEngine& m_engine;
};

/// A whole station over fake daemons, with the tracker's lines made from the engine.
class SteeringTest : public ::testing::Test {
  protected:
    SteeringTest() {
        rotatorDaemon.come(0);
        radioDaemon.come(0);
        serve(0);
    }

    Steering& start(const SteeringOptions& options = {}) {
        m_steering.emplace(options, Steering::Devices{&rotator, {&radio}}, passes,
                           [this](std::string_view text) { told.emplace_back(text); });
        return *m_steering;
    }
    /// The line as the tracker has it at whole seconds.
    std::string lineAt(const std::string& name, const Instant& time) {
        const TrackResult track = sky.engine.track(name, time);
        const double ratio = track.rangeRateKmS / 299792.458;
        std::string shown = name;
        std::ranges::replace(shown, ' ', '_');
        return "SN" + shown + " AZ" + formatNumber(track.azimuthRad * 180 / std::numbers::pi, "0.00", ',') +
               " EL" + formatNumber(track.elevationRad * 180 / std::numbers::pi, "0.00", ',') + " UP" +
               formatNumber(435e6 * (1 + ratio), "0") + " DN" + formatNumber(145.8e6 * (1 - ratio), "0") +
               " DO" + formatNumber(-ratio * 1e8, "0.####", ',');
    }
    void give(const std::string& line, double second) {
        m_steering->lineCame(line, plusSeconds(begin, second), second);
        serve(second);
    }
    void run(const std::string& name, double from, double to) {
        for (double second = from; second < to; second += 1.0) {
            give(lineAt(name, plusSeconds(begin, second)), second);
        }
    }
    void serve(double now) {
        rotator.tick(now);
        rotatorDaemon.serve(now);
        radioDaemon.serve(now);
    }
    int tells(std::string_view part) const {
        return static_cast<int>(std::ranges::count_if(
            told, [part](const std::string& text) { return text.find(part) != std::string::npos; }));
    }

    Texts told;
    ShippedSky sky{52.0, 5.0};
    Instant begin = ShippedSky::start();
    SkyPasses passes{sky.engine};
    FakeRotatorDaemon rotatorDaemon{"rotator", told};
    FakeRadioDaemon radioDaemon{"radio", told};
    RotatorControl rotator{rotatorDaemon.session, 2.0, [this](std::string_view t) { told.emplace_back(t); }};
    RadioControl radio{radioDaemon.session, RadioControl::Use::transceiver, 10.0,
                       [this](std::string_view t) { told.emplace_back(t); }};

    std::optional<Steering> m_steering;
};

TEST_F(SteeringTest, AWholePassFromTheWaitToThePark) {
    const ComingPass pass = sky.passesOf("ISS_(ZARYA)", 1).front();
    begin = plusSeconds(pass.start, -300.0);
    SteeringOptions options;
    options.atLoss = SteeringOptions::AtLoss::goToPark;
    options.park = {90, 45};
    start(options);
    run("ISS (ZARYA)", 0, 115);
    EXPECT_TRUE(rotatorDaemon.of("+P").empty()) << "long before the rise nothing moves";
    EXPECT_TRUE(radioDaemon.of("+F").empty());
    run("ISS (ZARYA)", 115, 299);
    ASSERT_EQ(rotatorDaemon.of("+P").size(), 1U) << "it waits where the pass begins";
    const double riseAzimuth = std::stod(rotatorDaemon.of("+P")[0].substr(3));
    EXPECT_NEAR(std::remainder(riseAzimuth - pass.path.front().direction.azimuthDeg, 360.0), 0.0, 0.1);
    EXPECT_GT(radioDaemon.of("+F").size(), 0U);
    run("ISS (ZARYA)", 299, 300 + pass.lengthSeconds() + 10);
    EXPECT_EQ(rotatorDaemon.of("+P").back(), "+P 90.00 45.00");
    EXPECT_GT(rotatorDaemon.of("+P").size(), 20U);
    EXPECT_LT(rotatorDaemon.of("+P").size(), 200U) << "the dead band leaves most seconds out";
    EXPECT_EQ(radioDaemon.of("+S"), (Texts{"+S 1 VFOB", "+S 0 VFOA"}));
    EXPECT_EQ(tells("the pass is over"), 1);
    EXPECT_EQ(tells("waiting for the rise"), 1);
    const std::size_t tunings = radioDaemon.of("+F").size();
    run("ISS (ZARYA)", 300 + pass.lengthSeconds() + 10, 300 + pass.lengthSeconds() + 60);
    EXPECT_EQ(radioDaemon.of("+F").size(), tunings) << "after the set the radio is the user's";
    EXPECT_LE(passes.looks, 3);
}

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
    const ComingPass pass = sky.passesOf("ISS_(ZARYA)", 1).front();
    begin = plusSeconds(pass.start, 60.0);
    start();
    const double elsewhere = pass.directionAt(60.0).azimuthDeg + 90.0;
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
    give("SNNOBODY AZ100.00 EL30.00 UP0 DN145800000 DO0", 0);
    steering.tick(4.9);
    EXPECT_EQ(tells("no line for 5 seconds"), 0);
    steering.tick(5.1);
    steering.tick(6);
    serve(6);
    EXPECT_EQ(tells("no line for 5 seconds"), 1);
    EXPECT_EQ(rotatorDaemon.of("+S").size(), 1U);
    give("rubbish", 7);
    EXPECT_EQ(rotatorDaemon.of("+P").size(), 1U);
    give("SNNOBODY AZ100.00 EL30.00 UP0 DN145800000 DO0", 8);
    EXPECT_EQ(rotatorDaemon.of("+P").size(), 2U);
    EXPECT_EQ(radioDaemon.of("+F").size(), 2U);
    EXPECT_EQ(tells("lines come again"), 1);
}

TEST_F(SteeringTest, ALinkThatIsSwitchedOffAndTheEndStopTheRotatorOnce) {
    Steering& steering = start();
    give("", 0);
    EXPECT_EQ(rotatorDaemon.of("+S").size(), 0U) << "what never moved isn't stopped";
    give("SNNOBODY AZ100.00 EL30.00 UP0 DN145800000 DO0", 1);
    give("", 2);
    give("", 3);
    EXPECT_EQ(rotatorDaemon.of("+S").size(), 1U);
    EXPECT_EQ(tells("switched off"), 1);
    steering.stop();
    serve(4);
    EXPECT_EQ(rotatorDaemon.of("+S").size(), 1U);
}

TEST_F(SteeringTest, AFloodOfNamesIsLookedUpNowAndThen) {
    start();
    for (int i = 0; i < 2000; ++i) {
        give("SNSAT" + std::to_string(i) + " AZ100.00 EL30.00 UP0 DN0 DO0", 0.001 * i);
    }
    EXPECT_LE(passes.looks, 3);
    EXPECT_LE(tells("the line is of"), 3);
}

TEST_F(SteeringTest, AFloodOfHostileLinesIsOneRemark) {
    start();
    for (int i = 0; i < 1000; ++i) give("SN\x1b[31m AZ1 EL1 UP0 DN0 DO0", 0.001 * i);
    EXPECT_EQ(tells("a line is left out"), 1);
    EXPECT_TRUE(rotatorDaemon.of("+P").empty());
}

TEST_F(SteeringTest, ARestThatHasBegunIsNotStopped) {
    const ComingPass pass = sky.passesOf("ISS_(ZARYA)", 1).front();
    begin = plusSeconds(pass.end, -30.0);
    SteeringOptions options;
    options.atLoss = SteeringOptions::AtLoss::goToPark;
    options.park = {500, 170};
    Steering& steering = start(options);
    run("ISS (ZARYA)", 0, 40);
    EXPECT_EQ(rotatorDaemon.of("+P").back(), "+P 140.00 90.00") << "turned and held into the limits";
    give("", 41);
    give(lineAt("ISS (ZARYA)", plusSeconds(begin, 42)), 42);
    steering.stop();
    serve(43);
    EXPECT_TRUE(rotatorDaemon.of("+S").empty());
}

TEST_F(SteeringTest, TheRestComesWhenTheDaemonIsBack) {
    const ComingPass pass = sky.passesOf("ISS_(ZARYA)", 1).front();
    begin = plusSeconds(pass.end, -30.0);
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
    const ComingPass pass = sky.passesOf("ISS_(ZARYA)", 1).front();
    begin = plusSeconds(pass.start, 60.0);
    SteeringOptions options;
    options.atLoss = SteeringOptions::AtLoss::goToPark;
    options.park = {90, 45};
    start(options);
    run("ISS (ZARYA)", 0, 10);
    give("SNNOBODY AZ200.00 EL-30.00 UP0 DN145800000 DO0", 10);
    EXPECT_EQ(rotatorDaemon.of("+P").back(), "+P 90.00 45.00");
}

TEST_F(SteeringTest, TheMoonBetweenTwoSatellitesLeavesTheRadioToTheUser) {
    start();
    give("SNNOBODY AZ100.00 EL30.00 UP435000000 DN145800000 DO0", 0);
    ASSERT_EQ(radioDaemon.of("+I").size(), 1U);
    give("SNmoon AZ100.00 EL30.00 DO0", 2);
    give("SNmoon AZ100.00 EL30.00 DO0", 3);
    EXPECT_EQ(radioDaemon.commands.back(), "+S 0 VFOA");
    give("SNNOBODY AZ100.00 EL30.00 UP435000000 DN145800000 DO0", 4);
    EXPECT_EQ(radioDaemon.of("+V").size(), 2U);
    EXPECT_EQ(radioDaemon.of("+F").size(), 2U) << "the user may have turned the knob";
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
