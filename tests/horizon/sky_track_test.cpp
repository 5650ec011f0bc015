
#include "core/date_time.h"
#include "horizon/sky_projection.h"
#include "tests/horizon/horizon_test.h"
#include "tests/support/testing.h"

namespace vantrace {
namespace {

class SkyTrackTest : public HorizonTest {
  protected:
    SkyTrackTest() { addFavourite("ISS (ZARYA)"); }
    void draw() {
        surfaces.Final.clear();
        state.PrimarySatIndex = 1;
        DrawSkyTrack(surfaces, form, state, services, "ISS (ZARYA)");
    }
    /// The pixels where the satellite is, every two seconds of true time from 10 seconds on, up to its set.
    std::set<std::pair<int, int>> expectedDots() const {
        std::set<std::pair<int, int>> dots;
        const ClockParts now = fakes.clock.read().utc;
        for (int i = 0; i <= 800; ++i) {
            ClockParts utc = now;
            utc.second += 10 + 2 * i;
            const TrackResult seen = state.OrbitEngine->EngineTrack(
                "ISS (ZARYA)", state.OrbitEngine->EngineJulianDate(packDateTime(utc)), 0, 0);
            constexpr double perRadian = 180 / std::numbers::pi;
            if (seen.elevationRad < 0) break;
            const double x = AzimuthToX(false, 720, seen.azimuthRad * perRadian);
            const double y = ElevationToY(180, seen.elevationRad * perRadian);
            if (y < 180)
                dots.insert({static_cast<int>(std::floor(x + 0.5)), static_cast<int>(std::floor(y + 0.5))});
        }
        return dots;
    }
    std::set<std::pair<int, int>> greenDots() const {
        std::set<std::pair<int, int>> dots;
        for (int y = 0; y < 180; ++y) {
            for (int x = 0; x < 720; ++x) {
                if (surfaces.Final.pixel(x, y) == 0x00FF00) dots.insert({x, y});
            }
        }
        return dots;
    }
};

TEST_F(SkyTrackTest, DotsFollowTheSatelliteToItsSet) {
    goIntoPass("ISS (ZARYA)", 60);
    // From an even second the carries come out even; from an odd one the seconds run on, which is the same
    // time.
    for (const int second : {0, 1}) {
        ClockParts utc = fakes.clock.read().utc;
        utc.second = second;
        fakes.clock.setUtc(utc, 120);
        draw();
        std::set<std::pair<int, int>> dots = greenDots();
        std::erase_if(dots, [](const auto& dot) { return dot.first >= 719; });
        std::set<std::pair<int, int>> expected = expectedDots();
        std::erase_if(expected, [](const auto& dot) { return dot.first >= 719 || dot.second >= 180; });
        EXPECT_GT(dots.size(), 50U);
        EXPECT_EQ(dots, expected) << second;
        EXPECT_EQ(state.PrimarySatIndex, 1);
    }
}

TEST_F(SkyTrackTest, OneThatIsBelowTheHorizonInTenSecondsIsLetGo) {
    const double set = goIntoPass("ISS (ZARYA)", 60);
    fakes.clock.setUtc(dateParts(set - 12 / 86400.0), 120);
    draw();
    EXPECT_EQ(state.PrimarySatIndex, 1);
    fakes.clock.setUtc(dateParts(set - 8 / 86400.0), 120);
    draw();
    EXPECT_EQ(state.PrimarySatIndex, 0);
    EXPECT_TRUE(greenDots().empty());
}

TEST_F(SkyTrackTest, TheDayRunsPastTheEndOfItsMonth) {
    // Local midnight of the last of August, with a satellite that never sets there.
    addFavourite("INTELSAT 10-02");
    fakes.clock.setUtc({2026, 8, 31, 21, 59, 40}, 120);
    surfaces.Final.clear();
    state.PrimarySatIndex = 2;
    DrawSkyTrack(surfaces, form, state, services, "INTELSAT 10-02");
    EXPECT_EQ(fakes.logged(labels::globalSatcalc), 0);
    EXPECT_FALSE(greenDots().empty());
    EXPECT_EQ(state.PrimarySatIndex, 2);
}

}  // namespace
}  // namespace vantrace
