#include "core/config.h"
#include "mapview/tables/footprint.h"
#include "mapview/tables/ground_track.h"
#include "tests/mapview/map_test.h"

namespace vantrace {
namespace {

constexpr double perRadian = 180.0 / std::numbers::pi;

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

TEST_F(GroundTrackTest, RunsOnPastTheEndsOfDayMonthAndYear) {
    fakes.clock.setLocal({2026, 8, 31, 23, 59, 45}, 120);
    calculate();
    expectTrack({2026, 8, 31, 21, 59, 45}, 0, 180);
    fakes.clock.setLocal({2026, 12, 31, 23, 59, 45}, 60);
    calculate();
    expectTrack({2026, 12, 31, 22, 59, 45}, 0, 180);
}

TEST_F(GroundTrackTest, StartsAtTheSimulatedTimeInTimeWarp) {
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

TEST_F(GroundTrackTest, EveryPointPastTheTableIsLogged) {
    SaveConfig(services, settings::groundTrackLen, "301");
    calculate();
    EXPECT_EQ(fakes.logged(labels::mapviewCalcGroundTrack), 2);
    expectTrack({2026, 8, 21, 20, 0, 0}, 0, 600);
}

TEST_F(GroundTrackTest, ALengthBeyondAllMeasureIsLoggedAndEnds) {
    SaveConfig(services, settings::groundTrackLen, "1e300");
    calculate();
    EXPECT_EQ(fakes.logged(labels::mapviewCalcGroundTrack), 1);
    EXPECT_EQ(pointsMade(), 1);
}

class FootprintTest : public MapTest {
  protected:
    void calculate(double heightKm, const MapPoint& centre) {
        CalcFootprint(map, services, heightKm, centre.Latitude, centre.Longitude);
    }
};

TEST_F(FootprintTest, EveryPointSeesTheSatelliteOnTheHorizon) {
    struct Case {
        double heightKm;
        MapPoint centre;
    };
    const Case cases[] = {{420.0, {51.6, 355.0}},  {420.0, {0.0, 0.0}},   {850.0, {85.0, 179.9}},
                          {850.0, {-80.0, 180.1}}, {35786.0, {0.1, 1.0}}, {20200.0, {-55.0, 270.0}}};
    for (const Case& value : cases) {
        calculate(value.heightKm, value.centre);
        const double radiusDeg = std::acos(6378.14 / (6378.14 + value.heightKm)) * perRadian;
        for (int i = 0; i <= 361; ++i) {
            const MapPoint& point = map.FootprintPoints[i];
            ASSERT_NEAR(distanceDeg(value.centre, point), radiusDeg, 1e-6) << i;
            ASSERT_GE(point.Longitude, 0.0);
            ASSERT_LE(point.Longitude, 360.0);
        }
    }
    EXPECT_TRUE(fakes.logLines().empty());
}

TEST_F(FootprintTest, RunsFromNorthThroughWestAndHoldsEachPointTwice) {
    calculate(420.0, {10.0, 100.0});
    const double radiusDeg = std::acos(6378.14 / 6798.14) * perRadian;
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
    const double radiusDeg = std::acos(6378.14 / 6798.14) * perRadian;
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

}  // namespace
}  // namespace vantrace
