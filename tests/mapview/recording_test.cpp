#include <stdexcept>
#include <vector>

#include "core/config.h"
#include "core/error_label.h"
#include "mapview/gsatroutine.h"
#include "tests/mapview/map_test.h"
#include "tests/support/fake_window.h"

namespace vantrace {
namespace {

using Events = std::vector<std::string>;

class RecordingTest : public MapTest {
  protected:
    RecordingTest() {
        registerFake(services.windows, "Record", m_window);
        m_window.onShow = [this] { events.emplace_back("show"); };
        recorder.StartRecording = [this](std::string_view name) {
            events.push_back("start " + std::string(name));
            recorder.RecordingSat = name;
        };
        recorder.StopRecording = [this] {
            events.emplace_back("stop");
            recorder.Recording = false;
        };
        SaveConfig(services, settings::wxEl, "10");
        addFavourite("ISS");
        addFavourite("NOAA 15");
        addFavourite("NOAA 18");
        select(2);
    }
    ~RecordingTest() override { services.windows.close(); }

    void setOn(const Setting& setting) { SaveConfig(services, setting, "1"); }
    /// What happens when a satellite is seen at that elevation.
    Events seen(std::string_view name, double elevationDeg) {
        events.clear();
        state.SatElevation = elevationDeg;
        ErrorLabel label(services, labels::mapviewGsatroutine);
        testRecording(recorder, state, services, label, name);
        return events;
    }
    /// One tick of the map; the engine knows none of the satellites, so each is seen at that elevation.
    Events tickAt(double elevationDeg) {
        events.clear();
        state.SatElevation = elevationDeg;
        Gsatroutine(form, map, state, services, recorder);
        return events;
    }

  private:
    WindowScript m_window;

  protected:
    Events events;
};

TEST_F(RecordingTest, WithBothSettingsOffOrNotExactlyOneNothingIsRecorded) {
    EXPECT_EQ(seen("NOAA 15", 45), Events{});
    SaveConfig(services, settings::recWxsat, "2");
    SaveConfig(services, settings::recPrimary, "0.5");
    EXPECT_EQ(seen("NOAA 15", 45), Events{});
    recorder.Recording = true;
    recorder.RecordingSat = "NOAA 15";
    EXPECT_EQ(seen("NOAA 15", -45), Events{}) << "and nothing is stopped either";
}

TEST_F(RecordingTest, TheWholePartOfTheElevationCountsAgainstTheThreshold) {
    setOn(settings::recWxsat);
    EXPECT_EQ(seen("NOAA 15", 9.9), Events{});
    EXPECT_FALSE(recorder.Recording);
    EXPECT_EQ(seen("NOAA 15", 10.0), (Events{"show", "start NOAA 15"}));
    EXPECT_TRUE(recorder.Recording);
    EXPECT_EQ(seen("NOAA 15", 10.4), Events{});
    EXPECT_EQ(seen("NOAA 15", 9.9), Events{"stop"});
    EXPECT_FALSE(recorder.Recording);
    SaveConfig(services, settings::wxEl, "10.5");
    EXPECT_EQ(seen("NOAA 15", 10.7), Events{}) << "10 against 10.5";
    SaveConfig(services, settings::wxEl, "0");
    EXPECT_EQ(seen("NOAA 15", -0.1), Events{});
    EXPECT_EQ(seen("NOAA 15", 0.0), (Events{"show", "start NOAA 15"}));
}

TEST_F(RecordingTest, WeatherSatellitesAreKnownByAWordAnywhereInTheirNames) {
    setOn(settings::recWxsat);
    for (const char* name : {"NOAA 19", "METEOR-M2 3", "OLD RESURS", "XFENGYUN 3D"}) {
        EXPECT_EQ(seen(name, 45), (Events{"show", "start " + std::string(name)}));
        EXPECT_EQ(seen(name, -45), Events{"stop"});
    }
    EXPECT_EQ(seen("noaa 19", 45), Events{});
    EXPECT_EQ(seen("ISS", 45), Events{}) << "the first favourite is the other setting's";
}

TEST_F(RecordingTest, PrimaryMeansTheFirstFavouriteAndNotTheSelectedOne) {
    setOn(settings::recPrimary);
    EXPECT_EQ(seen("NOAA 15", 45), Events{});
    EXPECT_EQ(seen("ISS (ZARYA)", 45), (Events{"show", "start ISS (ZARYA)"}));
}

TEST_F(RecordingTest, ASatelliteThatFitsBothSettingsIsStartedTwice) {
    setOn(settings::recWxsat);
    setOn(settings::recPrimary);
    state.Favourites[1].Name = "NOAA";
    EXPECT_EQ(seen("NOAA 15", 45), (Events{"show", "start NOAA 15", "show", "start NOAA 15"}));
}

TEST_F(RecordingTest, WhileOneIsRecordedNoOtherStartsOrStopsIt) {
    setOn(settings::recWxsat);
    seen("NOAA 15", 45);
    EXPECT_EQ(seen("NOAA 18", 45), Events{});
    EXPECT_EQ(seen("NOAA 18", -45), Events{});
    EXPECT_EQ(seen("NOAA 15", -45), Events{"stop"});
}

TEST_F(RecordingTest, ATickTestsOnlyTheSatelliteOfThePane) {
    setOn(settings::recWxsat);
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
    setOn(settings::recWxsat);
    warpTo({2026, 8, 21, 22, 0, 0}, 1);
    EXPECT_EQ(tickAt(45), Events{});
    form.TimeWarp = 0;
    tickAt(45);
    form.TimeWarp = 1;
    EXPECT_EQ(tickAt(-45), Events{});
    EXPECT_TRUE(recorder.Recording);
}

TEST_F(RecordingTest, ADoorOrWindowThatFailsIsLoggedAndOnesThatAreNotThereDoNothing) {
    setOn(settings::recWxsat);
    recorder.StartRecording = [](std::string_view) { throw std::runtime_error("no sound card"); };
    EXPECT_EQ(seen("NOAA 15", 45), Events{"show"});
    EXPECT_EQ(fakes.logged(labels::mapviewGsatroutine), 1);
    EXPECT_TRUE(recorder.Recording);

    PassRecorder nobody;
    ErrorLabel label(services, labels::mapviewGsatroutine);
    services.windows.close();
    events.clear();
    testRecording(nobody, state, services, label, "NOAA 15");
    EXPECT_EQ(events, Events{});
    EXPECT_EQ(fakes.logged(labels::mapviewGsatroutine), 1);
}

}  // namespace
}  // namespace vantrace
