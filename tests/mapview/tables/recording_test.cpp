// When a tick of the map tests for recordings; the tests themselves are the station's.
#include "core/config.h"
#include "mapview/tables/gsatroutine.h"
#include "tests/mapview/map_test.h"
#include "tests/support/fake_record_window.h"

namespace vantrace {
namespace {

using Events = std::vector<std::string>;

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
    Events tickAt(double elevationDeg) {
        record.events.clear();
        state.SatElevation = elevationDeg;
        Gsatroutine(form, map, state, services);
        return record.events;
    }

    RecordScript record;
};

TEST_F(RecordingTest, ATickTestsOnlyTheSatelliteOfThePane) {
    select(1);
    EXPECT_EQ(tickAt(45), Events{});
    select(3);
    EXPECT_EQ(tickAt(45), (Events{"show", "start NOAA 18"}));
    select(2);
    EXPECT_EQ(tickAt(-45), Events{});
    select(3);
    EXPECT_EQ(tickAt(-45), Events{"stop"});
}

TEST_F(RecordingTest, DuringTimeWarpNothingStartsOrStops) {
    warpTo({2026, 8, 21, 22, 0, 0}, 1);
    EXPECT_EQ(tickAt(45), Events{});
    form.TimeWarp = 0;
    tickAt(45);
    form.TimeWarp = 1;
    EXPECT_EQ(tickAt(-45), Events{});
    EXPECT_TRUE(state.Recording);
}

}  // namespace
}  // namespace vantrace
