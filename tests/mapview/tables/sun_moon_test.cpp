#include "mapview/tables/sun_moon.h"

#include "tests/mapview/map_test.h"

namespace vantrace {
namespace {

constexpr double pi = std::numbers::pi;

class SunMoonTest : public MapTest {
  protected:
    void calculate() { CalcSunMoon(form, map, state, services); }
    MapPoint sun() const { return {map.SunLatitude, map.SunLongitude}; }
};

TEST_F(SunMoonTest, SunAndMoonStandWhereTheEngineSeesThem) {
    calculate();
    const DateParts utc{2026, 8, 21, 20, 0, 0};
    EXPECT_NEAR(distanceDeg(sun(), subPoint(seenAt("sun", utc))), 0.0, 1e-6);
    EXPECT_NEAR(distanceDeg({map.MoonLatitude, map.MoonLongitude}, subPoint(seenAt("moon", utc))), 0.0, 1e-6);
    // The sun of a late August: 12 degrees north, over 20:00 - 12:00 = 8 hours, that is 120 degrees, west.
    EXPECT_NEAR(map.SunLatitude, 12.0, 0.5);
    EXPECT_NEAR(map.SunLongitude, 120.0, 2.0);
    EXPECT_EQ(fakes.events.yields, 0);
    EXPECT_TRUE(fakes.logLines().empty());
}

TEST_F(SunMoonTest, TheSunIsOnTheHorizonAllAlongTheTerminator) {
    for (const int month : {3, 6, 9, 12}) {
        fakes.clock.setUtc({2026, month, 21, 7, 13, 0}, 60);
        calculate();
        for (int i = 0; i <= 360; i += 15) {
            const MapPoint& point = map.TerminatorPoints[i];
            state.OrbitEngine->EngineSetLatitude(point.Latitude);
            state.OrbitEngine->EngineSetLongitude(360.0 - point.Longitude);
            state.OrbitEngine->EngineSetHeight(0.0);
            EXPECT_NEAR(seenAt("sun", {2026, month, 21, 7, 13, 0}).elevationRad * 180.0 / pi, 0.0, 0.01)
                << month << " " << i;
        }
        EXPECT_NEAR(distanceDeg(map.TerminatorPoints[0], map.TerminatorPoints[360]), 0.0, 1e-6);
        EXPECT_NEAR(distanceDeg(map.TerminatorPoints[0], map.TerminatorPoints[1]), 1.0, 1e-3);
    }
}

TEST_F(SunMoonTest, FifteenSeedsLieRoundTheDayAndTheFirstStandsTwice) {
    map.SunSeedPoints[16] = {1.0, 2.0};
    calculate();
    for (int i = 0; i <= 15; ++i) EXPECT_NEAR(distanceDeg(sun(), map.SunSeedPoints[i]), 82.672, 0.001) << i;
    EXPECT_NEAR(distanceDeg(map.SunSeedPoints[0], map.SunSeedPoints[15]), 0.0, 1e-6);
    EXPECT_GT(distanceDeg(map.SunSeedPoints[0], map.SunSeedPoints[14]), 20.0);
    EXPECT_EQ(map.SunSeedPoints[16].Longitude, 2.0);
}

TEST_F(SunMoonTest, TheLinesTellDirectionsRoundedDownAndTheMoonsDistanceAndPhase) {
    // First quarter was on 20 August 2026 at 02:46 UTC, and the moon's angle grows by some 12.2 degrees a
    // day.
    calculate();
    const TrackResult sunSeen = seenAt("sun", {2026, 8, 21, 20, 0, 0});
    const TrackResult moonSeen = seenAt("moon", {2026, 8, 21, 20, 0, 0});
    const auto floorText = [](double radians) {
        return std::to_string(static_cast<int>(std::floor(radians * 180.0 / pi)));
    };
    EXPECT_EQ(form.RemoteStat[11], "Azimuth : " + floorText(sunSeen.azimuthRad) + " deg");
    EXPECT_EQ(form.RemoteStat[12], "Elevation : " + floorText(sunSeen.elevationRad) + " deg");
    EXPECT_LT(sunSeen.elevationRad, 0.0) << "rounded down, not towards 0";
    EXPECT_EQ(form.RemoteStat[13], "Azimuth : " + floorText(moonSeen.azimuthRad) + " deg");
    EXPECT_EQ(form.RemoteStat[14], "Elevation : " + floorText(moonSeen.elevationRad) + " deg");
    EXPECT_EQ(form.RemoteStat[15].size(), std::string("Distance : 390,000.0 km").size());
    EXPECT_TRUE(form.RemoteStat[15].starts_with("Distance : 3")) << form.RemoteStat[15];
    EXPECT_EQ(form.RemoteStat[15].substr(14, 1), ",");
    EXPECT_TRUE(form.RemoteStat[16].starts_with("Phase : 6")) << form.RemoteStat[16];
    EXPECT_TRUE(form.RemoteStat[16].ends_with("% (Half waxing)")) << form.RemoteStat[16];
    EXPECT_EQ(form.RemoteStat[10], "");

    services.format.decimalMark = ',';
    calculate();
    EXPECT_EQ(form.RemoteStat[15].substr(14, 1), ".");
    EXPECT_EQ(form.RemoteStat[15].substr(18, 1), ",");
}

TEST_F(SunMoonTest, TakesTheSimulatedTimeInTimeWarp) {
    warpTo({2026, 8, 32, 2, 0, 0}, 1);
    calculate();
    EXPECT_NEAR(distanceDeg(sun(), subPoint(seenAt("sun", {2026, 9, 1, 0, 0, 0}))), 0.0, 1e-6);
}

TEST_F(SunMoonTest, WithoutAnEngineTheLastResultsStandAndTheLogTells) {
    state.SatLatitude = 7.0;
    state.SatLongitude = 8.0;
    state.OrbitEngine.reset();
    calculate();
    EXPECT_GT(fakes.logged(labels::globalSatcalc), 0);
    EXPECT_EQ(map.SunLatitude, 7.0);
    EXPECT_EQ(map.MoonLongitude, 8.0);
    EXPECT_NEAR(distanceDeg(sun(), map.TerminatorPoints[77]), 89.9966, 0.0001);
}

TEST(MoonPhase, WordsChangeAboveTheirAngles) {
    struct Case {
        double angleRad;
        std::string_view atAngle;
        std::string_view above;
    };
    constexpr double step = 1e-9;
    const Case cases[] = {{-2.356194489, "New Moon", "1st Quarter"},
                          {-1.570707963, "1st Quarter", "Half waxing"},
                          {-0.785398163, "Half waxing", "3rd Quarter waxing"},
                          {0.0, "3rd Quarter waxing", "Full"},
                          {0.785398163, "Full", "3rd Quarter waning"},
                          {1.570796326, "3rd Quarter waning", "Half waning"},
                          {2.356194489, "Half waning", "Last Quarter"}};
    for (const Case& value : cases) {
        EXPECT_EQ(moonPhaseWord(value.angleRad), value.atAngle) << value.angleRad;
        EXPECT_EQ(moonPhaseWord(value.angleRad + step), value.above) << value.angleRad;
    }
    EXPECT_EQ(moonPhaseWord(-pi), "New Moon");
    EXPECT_EQ(moonPhaseWord(pi), "Last Quarter");
}

TEST(MoonPhase, PercentageRisesToFullMoonAndFallsAgain) {
    EXPECT_NEAR(moonPhasePercent(-pi), 0.0, 1e-9);
    EXPECT_NEAR(moonPhasePercent(-pi / 2.0), 50.0, 1e-9);
    EXPECT_EQ(moonPhasePercent(0.0), 100.0);
    EXPECT_NEAR(moonPhasePercent(pi / 2.0), 50.0, 1e-9);
    EXPECT_NEAR(moonPhasePercent(pi), 0.0, 1e-9);
}

}  // namespace
}  // namespace vantrace
