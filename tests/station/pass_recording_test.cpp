#include "station/pass_recording.h"

#include "core/config.h"
#include "core/error_label.h"
#include "core/labels.h"
#include "tests/support/fake_record_window.h"
#include "tests/support/test_services.h"
#include "tests/support/testing.h"

namespace vantrace {
namespace {

class PassRecordingTest : public ::testing::Test {
  protected:
    PassRecordingTest() {
        registerRecord(services.windows, record, state);
        SaveConfig(services, settings::wxEl, "10");
        state.Favourites[1].Name = "ISS";
        state.FavouriteCount = 1;
    }
    ~PassRecordingTest() override { services.windows.close(); }

    void setOn(const Setting& setting) { SaveConfig(services, setting, "1"); }
    /// What happens when a satellite is seen at that elevation.
    Texts seen(std::string_view name, double elevationDeg) {
        record.events.clear();
        state.SatElevation = elevationDeg;
        ErrorLabel label(services, labels::mapviewGsatroutine);
        testRecording(state, services, label, name);
        return record.events;
    }

    TestServices fakes;
    Services& services = fakes.services;
    ProgramState state;
    RecordScript record;
};

TEST_F(PassRecordingTest, WithBothSettingsOffOrNotExactlyOneNothingIsRecorded) {
    EXPECT_EQ(seen("NOAA 15", 45), Texts{});
    SaveConfig(services, settings::recWxsat, "2");
    SaveConfig(services, settings::recPrimary, "0.5");
    EXPECT_EQ(seen("NOAA 15", 45), Texts{});
    state.Recording = true;
    state.RecordingSat = "NOAA 15";
    EXPECT_EQ(seen("NOAA 15", -45), Texts{}) << "and nothing is stopped either";
}

TEST_F(PassRecordingTest, TheWholePartOfTheElevationCountsAgainstTheThreshold) {
    setOn(settings::recWxsat);
    EXPECT_EQ(seen("NOAA 15", 9.9), Texts{});
    EXPECT_FALSE(state.Recording);
    EXPECT_EQ(seen("NOAA 15", 10.0), (Texts{"show", "start NOAA 15"}));
    EXPECT_TRUE(state.Recording);
    EXPECT_EQ(seen("NOAA 15", 10.4), Texts{});
    EXPECT_EQ(seen("NOAA 15", 9.9), Texts{"stop"});
    EXPECT_FALSE(state.Recording);
    SaveConfig(services, settings::wxEl, "10.5");
    EXPECT_EQ(seen("NOAA 15", 10.7), Texts{}) << "10 against 10.5";
    SaveConfig(services, settings::wxEl, "0");
    EXPECT_EQ(seen("NOAA 15", -0.1), Texts{});
    EXPECT_EQ(seen("NOAA 15", 0.0), (Texts{"show", "start NOAA 15"}));
}

TEST_F(PassRecordingTest, WeatherSatellitesAreKnownByAWordAnywhereInTheirNames) {
    setOn(settings::recWxsat);
    for (const char* name : {"NOAA 19", "METEOR-M2 3", "OLD RESURS", "XFENGYUN 3D"}) {
        EXPECT_EQ(seen(name, 45), (Texts{"show", "start " + std::string(name)}));
        EXPECT_EQ(seen(name, -45), Texts{"stop"});
    }
    EXPECT_EQ(seen("noaa 19", 45), Texts{});
    EXPECT_EQ(seen("ISS", 45), Texts{}) << "the first favourite is the other setting's";
}

TEST_F(PassRecordingTest, PrimaryMeansTheFirstFavouriteAndOneThatFitsBothSettingsIsStartedTwice) {
    setOn(settings::recPrimary);
    EXPECT_EQ(seen("NOAA 15", 45), Texts{});
    EXPECT_EQ(seen("ISS (ZARYA)", 45), (Texts{"show", "start ISS (ZARYA)"}));
    EXPECT_EQ(seen("ISS (ZARYA)", -45), Texts{"stop"});
    setOn(settings::recWxsat);
    state.Favourites[1].Name = "NOAA";
    EXPECT_EQ(seen("NOAA 15", 45), (Texts{"show", "start NOAA 15", "show", "start NOAA 15"}));
}

TEST_F(PassRecordingTest, WhileOneIsRecordedNoOtherStartsOrStopsIt) {
    setOn(settings::recWxsat);
    seen("NOAA 15", 45);
    EXPECT_EQ(seen("NOAA 18", 45), Texts{});
    EXPECT_EQ(seen("NOAA 18", -45), Texts{});
    EXPECT_EQ(seen("NOAA 15", -45), Texts{"stop"});
}

TEST_F(PassRecordingTest, APassWhoseWindowIsGoneIsStoppedOnANewOne) {
    setOn(settings::recWxsat);
    seen("NOAA 15", 45);
    services.windows.unload("Record");
    EXPECT_EQ(seen("NOAA 15", 30), Texts{});
    EXPECT_EQ(seen("NOAA 15", -1), Texts{"stop"});
    EXPECT_EQ(record.made, 2);
}

TEST_F(PassRecordingTest, AWindowThatFailsIsLoggedAndOneThatIsNotThereDoesNothing) {
    setOn(settings::recWxsat);
    record.onStart = [] { throw std::runtime_error("no sound card"); };
    EXPECT_EQ(seen("NOAA 15", 45), (Texts{"show", "start NOAA 15"}));
    EXPECT_EQ(fakes.logged(labels::mapviewGsatroutine), 1);
    EXPECT_TRUE(state.Recording);

    state.Recording = false;
    services.windows.close();
    EXPECT_EQ(seen("NOAA 15", 45), Texts{});
    EXPECT_EQ(seen("NOAA 15", -45), Texts{});
    EXPECT_EQ(fakes.logged(labels::mapviewGsatroutine), 1);
}

}  // namespace
}  // namespace vantrace
