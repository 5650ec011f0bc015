#include "mapview/tables/gsatroutine.h"

#include "core/config.h"
#include "core/error_label.h"
#include "mapview/tables/info_pane.h"
#include "mapview/tables/status_line.h"
#include "tests/mapview/map_test.h"
#include "tests/support/fake_record_window.h"

namespace vantrace {
namespace {

const std::string station = "ISS (ZARYA)";
const std::string funcube = "FUNCUBE-1 (AO-73)";
const std::string intelsat = "INTELSAT 10-02";

class GsatroutineTest : public MapTest {
  protected:
    GsatroutineTest() {
        addFavourite(station);
        addFavourite(funcube);
        addFavourite(intelsat);
        select(1);
    }
    void tick() { Gsatroutine(form, map, state, services); }
    void expectPlaced(const FavouriteRecord& favourite, const DateParts& utc) const {
        SCOPED_TRACE(favourite.Name);
        const TrackResult track = seenAt(favourite.Name, utc);
        const MapPoint point = subPoint(track);
        EXPECT_NEAR(favourite.Latitude, point.Latitude, 1e-9);
        EXPECT_NEAR(favourite.Longitude, point.Longitude, 1e-9);
        EXPECT_NEAR(favourite.Azimuth, inDegrees(track.azimuthRad), 1e-9);
        EXPECT_NEAR(favourite.Elevation, inDegrees(track.elevationRad), 1e-9);
    }
};

TEST_F(GsatroutineTest, PlacesEveryFavouriteAtTheClocksTimeAndYieldsAfterEach) {
    tick();
    for (int i = 1; i <= 3; ++i) expectPlaced(state.Favourites[i], {2026, 8, 21, 20, 0, 0});
    EXPECT_EQ(fakes.events.yields, 3);
    EXPECT_TRUE(fakes.logLines().empty());
}

TEST_F(GsatroutineTest, TheStatusLineCountsAllInRangeAndTellsTimeAndDay) {
    fakes.clock.setUtc({2026, 8, 21, 22, 45, 36}, 120);
    tick();
    ASSERT_GT(state.Favourites[3].Elevation, 0) << "stands over Africa";
    ASSERT_LT(state.Favourites[2].Elevation, 0);
    ASSERT_LT(state.Favourites[1].Elevation, 0);
    // The local date is the 22nd, day 234; 22:45:36 UTC is 0.9483333 of a day.
    EXPECT_EQ(map.StatusLine,
              "1 out of 3 Satellites in range - Local : 00:45:36 - UTC : 22:45:36 (234.9483333)");
}

TEST_F(GsatroutineTest, TheMenuStopsItAfterTheSatelliteAtHand) {
    map.StatusLine = "before";
    fakes.events.onYield = [&] { state.MainTag = "menu"; };
    tick();
    expectPlaced(state.Favourites[1], {2026, 8, 21, 20, 0, 0});
    EXPECT_EQ(state.Favourites[2].Latitude, 0);
    EXPECT_EQ(fakes.events.yields, 1);
    EXPECT_EQ(map.StatusLine, "before");
}

TEST_F(GsatroutineTest, WithoutAPrimaryInTheListThePaneKeepsItsTextsAndThereIsNoFootprint) {
    for (const std::int16_t index : {std::int16_t{0}, std::int16_t{4}}) {
        state.PrimarySatIndex = index;
        tick();
        EXPECT_EQ(form.RemoteStat[0], "Please Wait.....");
        EXPECT_EQ(form.RemoteStat[7], "");
        EXPECT_EQ(map.FootprintPoints[0].Latitude, 0);
    }
    select(1);
    tick();
    EXPECT_EQ(form.RemoteStat[0], "Satellite : ISS (ZARYA)");
    const TrackResult seen = seenAt(station, {2026, 8, 21, 20, 0, 0});
    EXPECT_NEAR(distanceDeg(map.FootprintPoints[0], subPoint(seen)),
                inDegrees(std::acos(6378.14 / (6378.14 + seen.heightKm))), 1e-6);
}

TEST_F(GsatroutineTest, SimulatedTimeMovesOnByTheSlidersMinutesAndCarriesUpToTheDay) {
    const struct {
        DateParts before;
        std::int16_t minutes;
        DateParts after;
    } cases[] = {
        {{2026, 8, 21, 10, 20, 30}, 5, {2026, 8, 21, 10, 25, 30}},
        {{2026, 8, 21, 10, 20, 30}, 60, {2026, 8, 21, 11, 20, 30}},
        {{2026, 8, 21, 10, 59, 30}, 60, {2026, 8, 21, 11, 59, 30}},
        {{2026, 8, 21, 10, 59, 0}, 1, {2026, 8, 21, 11, 0, 0}},
        {{2026, 8, 31, 23, 50, 30}, 10, {2026, 8, 32, 0, 0, 30}},
        {{2026, 12, 40, 23, 50, 30}, 10, {2026, 12, 41, 0, 0, 30}},
    };
    for (const auto& value : cases) {
        warpTo(value.before, value.minutes);
        tick();
        EXPECT_EQ(warped(), value.after) << value.before.hour << ":" << value.before.minute;
    }
    form.TimeWarp = 0;
    tick();
    EXPECT_EQ(warped(), cases[5].after) << "stands in real time";
}

TEST_F(GsatroutineTest, InTimeWarpPlacesAndClockTextsAreSimulatedButTheDayIsToday) {
    warpTo({2026, 8, 31, 23, 58, 20}, 4);
    fakes.clock.setUtc({2026, 8, 21, 20, 0, 36}, 120);
    tick();
    // Day 32 of August, 00:02:20 local time, is 22:02:20 UTC of the 31st; the 36 seconds are the clock's.
    for (int i = 1; i <= 3; ++i) expectPlaced(state.Favourites[i], {2026, 8, 31, 22, 2, 20});
    const std::string::size_type behindCount = map.StatusLine.find(" - ");
    EXPECT_EQ(map.StatusLine.substr(behindCount), " - Local : 00:02:20 - UTC : 22:02:20 (233.9184722)");
}

TEST_F(GsatroutineTest, SimulatedTimeThatIsNoTimeIsLoggedAndTheRestRuns) {
    warpTo({2026, 8, 21, 10, 0, 0}, 1);
    form.WarpYear = 32000;
    tick();
    EXPECT_EQ(fakes.logged(labels::mapviewGsatroutine), 1);
    EXPECT_GT(fakes.logged(labels::globalSatcalc), 0);
    EXPECT_EQ(fakes.events.yields, 3);
    EXPECT_NE(map.StatusLine, "");
}

TEST_F(GsatroutineTest, ASatelliteThatCannotBePlacedHasThePlaceOfTheOneBefore) {
    state.Favourites[2].Name = "NO SUCH SATELLITE";
    tick();
    EXPECT_EQ(state.Favourites[2].Latitude, state.Favourites[1].Latitude);
    EXPECT_EQ(state.Favourites[2].Elevation, state.Favourites[1].Elevation);
    expectPlaced(state.Favourites[3], {2026, 8, 21, 20, 0, 0});
    EXPECT_EQ(fakes.logged(labels::globalSatcalc), 1);
}

TEST_F(GsatroutineTest, OnTheHorizonIsNotInRange) {
    state.FavouriteCount = 1;
    state.Favourites[1].Name = "NO SUCH SATELLITE";
    state.SatElevation = 0.0;
    tick();
    EXPECT_TRUE(map.StatusLine.starts_with("0 out of 1 Satellites"));
    EXPECT_EQ(form.RemoteStat[7], "ETA : NOT IN RANGE TODAY");
    state.SatElevation = 0.01;
    tick();
    EXPECT_TRUE(map.StatusLine.starts_with("1 out of 1 Satellites"));
    EXPECT_EQ(form.RemoteStat[7], "ETA : In Range Now");
}

TEST_F(GsatroutineTest, FailuresOfTheTableAndOfAYieldCostOnlyThemselves) {
    fakes.events.onYield = [] { throw std::runtime_error("a handler failed"); };
    tick();
    EXPECT_EQ(fakes.logged(labels::mapviewGsatroutine), 3);
    EXPECT_NE(map.StatusLine, "");
    fakes.events.onYield = nullptr;
    state.FavouriteCount = 501;
    tick();
    EXPECT_EQ(fakes.logged(labels::mapviewGsatroutine), 3 + 2) << "entry 501 is read once and written once";
}

TEST_F(GsatroutineTest, LinesOfThePaneHaveTheirWordsAndFormats) {
    state.SatLatitude = -5.125;
    state.SatLongitude = 0.004;
    state.SatAzimuth = 359.96;
    state.SatElevation = -0.04;
    state.SatHeight = 35786.25;
    state.SatRange = 1234.99;
    state.SatSunlit = true;
    state.SatPhase255 = 12.5;
    state.SatPhase360 = "17.65";
    state.SatOrbitNumber = "158188";
    state.SatNextAOS = "23:05:10";
    state.SatNextMaxElevation = "07";
    state.SatNextDuration = "05m : 12s";
    ErrorLabel label(services, labels::mapviewGsatroutine);
    writeSatelliteLines(form, state, services, label, "NOAA 15");
    Texts expected{"Satellite : NOAA 15",
                   "Latitude : -5.13 Deg",
                   "Longitude : 0.00 Deg",
                   "Azimuth : 360.0 Deg",
                   "Elevation : 0.0 Deg",
                   "Height : 35786.3 Km",
                   "Range : 1234 Km  [SUNLIT]",
                   "ETA : 23:05:10 (07° EL   05m : 12s)",
                   "MA : 17.65 deg",
                   "Orbit : 158,188 revs"};
    expected.resize(17);
    expected.push_back("Phase(MA) : 12.5");
    EXPECT_EQ(Texts(form.RemoteStat.begin(), form.RemoteStat.end()), expected);

    services.format.decimalMark = ',';
    state.SatSunlit = false;
    state.SatOrbitNumber = "0";
    state.SatNextMaxElevation = "  ";
    state.SatHeight = std::nan("");
    writeSatelliteLines(form, state, services, label, "NOAA 15");
    EXPECT_EQ(form.RemoteStat[1], "Latitude : -5,13 Deg");
    EXPECT_EQ(form.RemoteStat[5], "Height : 35786.3 Km") << "what can't be written stays";
    EXPECT_EQ(fakes.logged(labels::mapviewGsatroutine), 1);
    EXPECT_EQ(form.RemoteStat[6], "Range : 1234 Km  [ECLIPSED]");
    EXPECT_EQ(form.RemoteStat[7], "ETA : NOT IN RANGE TODAY");
    EXPECT_EQ(form.RemoteStat[9], "Orbit :  revs");
    EXPECT_EQ(form.RemoteStat[17], "Phase(MA) : 12,5");
}

TEST(DayOfYear, EveryFourthYearIsALeapYear) {
    for (int month = 1; month <= 12; ++month) {
        for (const int year : {2024, 2026}) {
            const double newYear = packDateTime({year, 1, 1});
            EXPECT_EQ(dayOfYear({year, month, 28}), packDateTime({year, month, 28}) - newYear + 1) << month;
        }
    }
    EXPECT_EQ(dayOfYear({2024, 2, 29}), 60);
    EXPECT_EQ(dayOfYear({2100, 12, 31}), 366);
}

/// When a tick of the map tests for recordings; the tests themselves are the station's.
class RecordingTest : public MapTest {
  protected:
    RecordingTest() {
        registerRecord(services.windows, record, state);
        SaveConfig(services, settings::wxEl, "10");
        SaveConfig(services, settings::recWxsat, "1");
        addFavourite("ISS");
        addFavourite("NOAA 15");
        addFavourite("NOAA 18");
        select(2);
    }
    ~RecordingTest() override { services.windows.close(); }

    /// One tick of the map; the engine knows none of the satellites, so each is seen at that elevation.
    Texts tickAt(double elevationDeg) {
        record.events.clear();
        state.SatElevation = elevationDeg;
        Gsatroutine(form, map, state, services);
        return record.events;
    }

    RecordScript record;
};

TEST_F(RecordingTest, ATickTestsOnlyTheSatelliteOfThePane) {
    select(1);
    EXPECT_EQ(tickAt(45), Texts{});
    select(3);
    EXPECT_EQ(tickAt(45), (Texts{"show", "start NOAA 18"}));
    select(2);
    EXPECT_EQ(tickAt(-45), Texts{});
    select(3);
    EXPECT_EQ(tickAt(-45), Texts{"stop"});
}

TEST_F(RecordingTest, DuringTimeWarpNothingStartsOrStops) {
    warpTo({2026, 8, 21, 22, 0, 0}, 1);
    EXPECT_EQ(tickAt(45), Texts{});
    form.TimeWarp = 0;
    tickAt(45);
    form.TimeWarp = 1;
    EXPECT_EQ(tickAt(-45), Texts{});
    EXPECT_TRUE(state.Recording);
}

}  // namespace
}  // namespace vantrace
