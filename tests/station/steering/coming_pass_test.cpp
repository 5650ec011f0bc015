#include "station/steering/coming_pass.h"

#include "tests/station/steering/steering_sky.h"
#include "tests/support/temporary_folder.h"

namespace vantrace {
namespace {

TEST(ComingPassTest, LeadsFromRiseToSetPointByPoint) {
    ShippedSky sky(52.0, 5.0);
    std::string reason;
    const auto pass = comingPass(sky.engine, "ISS_(ZARYA)", ShippedSky::start(), reason);
    ASSERT_TRUE(pass) << reason;
    EXPECT_EQ(pass->name, "ISS (ZARYA)");
    EXPECT_TRUE(pass->setsAtEnd);
    EXPECT_NEAR(pass->path.front().direction.elevationDeg, 0.0, 0.02);
    EXPECT_NEAR(pass->path.back().direction.elevationDeg, 0.0, 0.02);
    for (std::size_t i = 1; i < pass->path.size(); ++i) {
        ASSERT_LE(pass->path[i].seconds - pass->path[i - 1].seconds, 1.0);
    }
    const TrackResult track = sky.engine.track("ISS (ZARYA)", plusSeconds(pass->start, 100.5));
    const Direction between = pass->directionAt(100.5);
    EXPECT_LT(angleBetween(between, {track.azimuthRad * 180 / std::numbers::pi,
                                     track.elevationRad * 180 / std::numbers::pi}),
              0.02);
    // In its middle the rest of the same pass is told.
    const auto rest = comingPass(sky.engine, "ISS_(ZARYA)", plusSeconds(pass->start, 120.0), reason);
    ASSERT_TRUE(rest);
    EXPECT_NEAR(secondsBetween(rest->end, pass->end), 0.0, 1.0);
    EXPECT_NEAR(rest->lengthSeconds(), pass->lengthSeconds() - 120.0, 1.0);
    const auto next = comingPass(sky.engine, "ISS_(ZARYA)", plusSeconds(pass->end, 1.0), reason);
    ASSERT_TRUE(next);
    EXPECT_GT(secondsBetween(pass->end, next->start), 1800.0);
}

TEST(ComingPassTest, KnowsTheMoonAndWhatNeverSets) {
    ShippedSky sky(52.0, 5.0);
    std::string reason;
    const auto moon = comingPass(sky.engine, "moon", ShippedSky::start(), reason);
    ASSERT_TRUE(moon) << reason;
    EXPECT_GT(moon->lengthSeconds(), 4 * 3600.0);
    const auto still = comingPass(sky.engine, "INTELSAT_10-02", ShippedSky::start(), reason);
    ASSERT_TRUE(still) << reason;
    EXPECT_FALSE(still->setsAtEnd);
    EXPECT_NEAR(still->lengthSeconds(), longestPathSeconds, 1.0);
    EXPECT_LE(still->path.size(), 8000U);
    EXPECT_FALSE(comingPass(sky.engine, "NOBODY", ShippedSky::start(), reason));
    EXPECT_EQ(reason, "no element set has that name");
    // Over the equator, on the other side of the earth.
    ShippedSky far(0.0, 180.0);
    EXPECT_FALSE(comingPass(far.engine, "INTELSAT_10-02", ShippedSky::start(), reason));
    EXPECT_EQ(reason, "it doesn't rise within 30 days");
}

TEST(ComingPassTest, ANameThatWasCutIsFound) {
    TemporaryFolder folder;
    folder.write("cut.txt",
                 "LONG NAME SAT1 OF MANY  \r\n"
                 "1 25544U 98067A   26233.53315667  .00008864  00000+0  16558-3 0  9995\r\n"
                 "2 25544  51.6331 336.6713 0007673  69.9303 290.2511 15.49551867581884\r\n");
    OrbitEngine engine;
    engine.EngineSetKepPath(folder.appPath());
    engine.EngineSetLatitude(52.0);
    std::string reason;
    // "LONG NAME SAT1 ", with the blank at its end and without.
    for (const char* const name : {"LONG_NAME_SAT1_OF_MANY", "LONG_NAME_SAT1_", "LONG_NAME_SAT1"}) {
        const auto pass = comingPass(engine, name, ShippedSky::start(), reason);
        ASSERT_TRUE(pass) << name << ": " << reason;
        EXPECT_EQ(pass->name, "LONG NAME SAT1 OF MANY");
    }
    EXPECT_FALSE(comingPass(engine, "LONG_NAME", ShippedSky::start(), reason));
}

}  // namespace
}  // namespace vantrace
