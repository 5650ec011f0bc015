#include "core/config.h"
#include "mapview/tables/footprint.h"
#include "mapview/tables/ground_track.h"
#include "mapview/tables/sun_moon.h"
#include "tests/mapview/map_test.h"

namespace vantrace {
namespace {

class GroundTrackTest : public MapTest {
  protected:
    GroundTrackTest() {
        addFavourite("FUNCUBE-1 (AO-73)");
        addFavourite("ISS (ZARYA)");
        select(2);
    }
    void calculate() { CalcGroundTrack(form, map, state, services); }
    void expectTrack(const DateParts& startUtc, int first, int last) const {
        for (int i = first; i <= last; ++i) {
            DateParts time = startUtc;
            time.second += 30 * i;
            const TrackResult track = seenAt("ISS (ZARYA)", time);
            const GroundTrackPoint& point = map.GroundTrackPoints[i];
            ASSERT_NEAR(point.Latitude, subPoint(track).Latitude, 1e-6) << i;
            ASSERT_NEAR(point.Longitude, subPoint(track).Longitude, 1e-6) << i;
            ASSERT_EQ(point.Colour, track.elevationRad > 0 ? 0xFFFFFFU : 255U) << i;
        }
    }
    int pointsMade() const {
        int count = 0;
        for (int i = 0; i <= 600; ++i) count += map.GroundTrackPoints[i].Colour != 0 ? 1 : 0;
        return count;
    }
};

TEST_F(GroundTrackTest, IsTheSelectedSatelliteEveryHalfMinuteFromNowForNinetyMinutes) {
    calculate();
    EXPECT_EQ(pointsMade(), 181);
    expectTrack({2026, 8, 21, 20, 0, 0}, 0, 180);
    EXPECT_EQ(fakes.events.yields, 0);
    EXPECT_TRUE(fakes.logLines().empty());
}

TEST_F(GroundTrackTest, ShowsWhenTheSatelliteIsAboveTheHorizon) {
    const double rise = state.OrbitEngine->EngineNextAOS("ISS (ZARYA)", packDateTime({2026, 8, 22}));
    fakes.clock.setUtc(dateParts(rise), 120);
    fakes.clock.advanceSeconds(-601);
    SaveConfig(services, settings::groundTrackLen, "300");
    calculate();
    EXPECT_EQ(pointsMade(), 601);
    expectTrack(fakes.clock.read().utc, 0, 600);
    EXPECT_EQ(map.GroundTrackPoints[20].Colour, 0x0000FFU) << "red: a second before the rise";
    EXPECT_EQ(map.GroundTrackPoints[21].Colour, 0xFFFFFFU);
    EXPECT_EQ(map.GroundTrackPoints[60].Colour, 0x0000FFU) << "it has set";
    EXPECT_TRUE(fakes.logLines().empty());
}

TEST_F(GroundTrackTest, RunsOnPastTheEndsOfDayMonthAndYearAlsoFromASimulatedTime) {
    fakes.clock.setLocal({2026, 8, 31, 23, 59, 45}, 120);
    calculate();
    expectTrack({2026, 8, 31, 21, 59, 45}, 0, 180);
    fakes.clock.setLocal({2026, 12, 31, 23, 59, 45}, 60);
    calculate();
    expectTrack({2026, 12, 31, 22, 59, 45}, 0, 180);
    fakes.clock.setUtc({2026, 8, 21, 20, 0, 0}, 120);
    warpTo({2026, 8, 32, 1, 10, 20}, 1);
    calculate();
    expectTrack({2026, 8, 31, 23, 10, 20}, 0, 180);
}

TEST_F(GroundTrackTest, ItsLengthIsTheSettingsAndTheRestOfTheTableStays) {
    SaveConfig(services, settings::groundTrackLen, "1.25");
    calculate();
    EXPECT_EQ(pointsMade(), 3);
    fakes.clock.advanceSeconds(300);
    SaveConfig(services, settings::groundTrackLen, "0");
    calculate();
    EXPECT_EQ(pointsMade(), 3);
    expectTrack({2026, 8, 21, 20, 5, 0}, 0, 0);
    expectTrack({2026, 8, 21, 20, 0, 0}, 1, 2);
    SaveConfig(services, settings::groundTrackLen, "-1");
    fakes.clock.advanceSeconds(300);
    calculate();
    expectTrack({2026, 8, 21, 20, 5, 0}, 0, 0);
}

TEST_F(GroundTrackTest, EveryPointPastTheTableIsLoggedAndALengthBeyondAllMeasureEndsIt) {
    SaveConfig(services, settings::groundTrackLen, "1e300");
    calculate();
    EXPECT_EQ(fakes.logged(labels::mapviewCalcGroundTrack), 1);
    EXPECT_EQ(pointsMade(), 1);
    SaveConfig(services, settings::groundTrackLen, "301");
    calculate();
    EXPECT_EQ(fakes.logged(labels::mapviewCalcGroundTrack), 1 + 2);
    expectTrack({2026, 8, 21, 20, 0, 0}, 0, 600);
}

class FootprintTest : public MapTest {
  protected:
    void calculate(double heightKm, const MapPoint& centre) {
        CalcFootprint(map, services, heightKm, centre.Latitude, centre.Longitude);
    }
};

TEST_F(FootprintTest, EveryPointSeesTheSatelliteOnTheHorizon) {
    const std::pair<double, MapPoint> table[] = {{420.0, {51.6, 355.0}}, {420.0, {0.0, 0.0}},
                                                 {850.0, {85.0, 179.9}}, {850.0, {-80.0, 180.1}},
                                                 {35786.0, {0.1, 1.0}},  {20200.0, {-55.0, 270.0}}};
    for (const auto& [heightKm, centre] : table) {
        calculate(heightKm, centre);
        const double radiusDeg = inDegrees(std::acos(6378.14 / (6378.14 + heightKm)));
        for (int i = 0; i <= 361; ++i) {
            const MapPoint& point = map.FootprintPoints[i];
            ASSERT_NEAR(distanceDeg(centre, point), radiusDeg, 1e-6) << i;
            ASSERT_GE(point.Longitude, 0.0);
            ASSERT_LE(point.Longitude, 360.0);
        }
    }
    EXPECT_TRUE(fakes.logLines().empty());
}

TEST_F(FootprintTest, RunsFromNorthThroughWestAndHoldsEachPointTwice) {
    calculate(420.0, {10.0, 100.0});
    const double radiusDeg = inDegrees(std::acos(6378.14 / 6798.14));
    EXPECT_NEAR(map.FootprintPoints[0].Latitude, 10.0 + radiusDeg, 1e-9);
    EXPECT_NEAR(map.FootprintPoints[0].Longitude, 100.0, 1e-9);
    EXPECT_GT(map.FootprintPoints[90].Longitude, 100.0 + radiusDeg) << "west is where longitudes grow";
    EXPECT_NEAR(map.FootprintPoints[180].Latitude, 10.0 - radiusDeg, 1e-9);
    EXPECT_LT(map.FootprintPoints[270].Longitude, 100.0 - radiusDeg);
    for (int i = 0; i <= 360; i += 2) {
        EXPECT_EQ(map.FootprintPoints[i].Latitude, map.FootprintPoints[i + 1].Latitude) << i;
        EXPECT_EQ(map.FootprintPoints[i].Longitude, map.FootprintPoints[i + 1].Longitude) << i;
    }
    EXPECT_GT(distanceDeg(map.FootprintPoints[0], map.FootprintPoints[2]), 0.5);
    EXPECT_NEAR(distanceDeg(map.FootprintPoints[0], map.FootprintPoints[361]), 0.0, 1e-9);
}

TEST_F(FootprintTest, OverAPoleIsAParallelWithAllLongitudes) {
    calculate(420.0, {90.0, 30.0});
    const double radiusDeg = inDegrees(std::acos(6378.14 / 6798.14));
    for (int i = 0; i <= 360; i += 2) {
        EXPECT_NEAR(map.FootprintPoints[i].Latitude, 90.0 - radiusDeg, 1e-9) << i;
        const double longitude = std::fmod(30.0 + 180.0 - i + 720.0, 360.0);
        const double turn = std::remainder(map.FootprintPoints[i].Longitude - longitude, 360.0);
        EXPECT_NEAR(turn, 0.0, 1e-6) << i;
    }
}

TEST_F(FootprintTest, OnTheGroundItIsTheSubPointAndTheLogTells) {
    for (const double heightKm : {0.0, -6378.14, -100.0}) {
        calculate(heightKm, {20.0, 300.0});
        for (int i = 0; i <= 361; ++i) {
            ASSERT_NEAR(map.FootprintPoints[i].Latitude, 20.0, 1e-9);
            ASSERT_NEAR(map.FootprintPoints[i].Longitude, 300.0, 1e-9);
        }
    }
    EXPECT_EQ(fakes.logged(labels::mapviewCalcFootprint), 3);
}

using std::numbers::pi;

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
            EXPECT_NEAR(inDegrees(seenAt("sun", {2026, month, 21, 7, 13, 0}).elevationRad), 0.0, 0.01)
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
    const auto floorText = [](double radians) {
        return std::to_string(static_cast<int>(std::floor(inDegrees(radians)))) + " deg";
    };
    for (const auto& [body, line] : {std::pair("sun", 11U), std::pair("moon", 13U)}) {
        const TrackResult seen = seenAt(body, {2026, 8, 21, 20, 0, 0});
        EXPECT_EQ(form.RemoteStat[line], "Azimuth : " + floorText(seen.azimuthRad));
        EXPECT_EQ(form.RemoteStat[line + 1], "Elevation : " + floorText(seen.elevationRad));
    }
    EXPECT_LT(seenAt("sun", {2026, 8, 21, 20, 0, 0}).elevationRad, 0.0) << "rounded down, not towards 0";
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
    constexpr double step = 1e-9;
    double from = -pi;
    for (const auto& [upTo, word] : {std::pair(-2.356194489, "New Moon"),
                                     {-1.570707963, "1st Quarter"},
                                     {-0.785398163, "Half waxing"},
                                     {0.0, "3rd Quarter waxing"},
                                     {0.785398163, "Full"},
                                     {1.570796326, "3rd Quarter waning"},
                                     {2.356194489, "Half waning"},
                                     {pi, "Last Quarter"}}) {
        EXPECT_EQ(moonPhaseWord(from), word) << from;
        EXPECT_EQ(moonPhaseWord(upTo), word) << upTo;
        from = upTo + step;
    }
}

TEST(MoonPhase, PercentageRisesToFullMoonAndFallsAgain) {
    for (const auto& [turns, percent] : {std::pair(0.0, 100.0), {0.25, 50.0}, {0.5, 0.0}}) {
        EXPECT_NEAR(moonPhasePercent(-2.0 * pi * turns), percent, 1e-9);
        EXPECT_NEAR(moonPhasePercent(2.0 * pi * turns), percent, 1e-9);
    }
}

}  // namespace
}  // namespace vantrace
