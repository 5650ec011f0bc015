#include "core/shell/view_dispatch.h"

#include "core/labels.h"
#include "core/shell/main_menu.h"
#include "core/shell/start_up.h"
#include "core/shell/status_panel.h"
#include "tests/core/shell/shell_test.h"

namespace vantrace {
namespace {

/// `Main` with its real handlers on windows without a screen.
class ViewDispatchTest : public ShellTest {
  protected:
    ViewDispatchTest() {
        writeSite();
        WindowScript& main = fakeWindow("Main");
        main.onLoad = [this] { Form_Load(form, state, services); };
        main.onActivate = [this] { Form_Activate(form, state, services); };
        for (const char* const view : {"WorldView", "Horizon", "PassPrediction", "Tabular"}) {
            // The word is seen as the window finds it when it is shown.
            WindowScript& script = fakeWindow(view);
            script.onShow = [this, view] { opened.push_back(std::string(view) + " " + state.MainTag); };
            script.onUnload = [this] { services.windows.show("Main"); };
        }
    }

    bool isOnScreen(const char* window) { return services.windows.isOnScreen(window); }

    Texts opened;
};

TEST_F(ViewDispatchTest, TheMenuOpensAViewAndMainComesBackWhenItIsLeft) {
    services.windows.show("Main");
    runMenuEntry("Mtabular", state, services);
    EXPECT_TRUE(isOnScreen("Tabular"));
    EXPECT_FALSE(isOnScreen("Main"));
    services.windows.unload("Tabular");
    EXPECT_TRUE(isOnScreen("Main"));
    EXPECT_EQ(state.MainTag, "menu");
    runMenuEntry("Mpass", state, services);
    runMenuEntry("Msouthcentral", state, services);
    fakes.settings.set("AltWorld", "1");
    runMenuEntry("Mworldview", state, services);
    EXPECT_EQ(opened, (Texts{"Tabular tabular", "PassPrediction passprediction", "WorldView SCQ",
                             "WorldView worldalt"}));
}

TEST_F(ViewDispatchTest, ASwitchOfViewsGoesThroughMain) {
    services.windows.show("Main");
    for (const auto& [word, expected] :
         std::vector<std::pair<std::string, std::string>>{{"Horizon", "Horizon horizon"},
                                                          {"pass", "PassPrediction pass"},
                                                          {"world", "WorldView worldnormal"}}) {
        runMenuEntry("Mtabular", state, services);
        opened.clear();
        state.NextView = word;
        services.windows.unload("Tabular");
        EXPECT_EQ(opened, Texts{expected});
        EXPECT_FALSE(isOnScreen("Main"));
        EXPECT_FALSE(isOnScreen("Tabular"));
        EXPECT_EQ(state.NextView, "");
        services.windows.show("Main");
    }
}

TEST_F(ViewDispatchTest, SoundDevicesAreClosedWhenTheRecorderHasSaved) {
    WindowScript& record = fakeWindow("Record");
    record.onUnload = [this] { services.capture.save("saved"); };
    services.windows.show("Record");
    services.windows.show("Main");
    EXPECT_EQ(fakes.capture.commands, (Texts{"save saved", "close all"}));
    fakes.capture.commands.clear();
    fakes.capture.failing = {"close all"};
    BUTexit_Click(state, services);
    EXPECT_EQ(fakes.capture.commands, Texts{"close all"});
    EXPECT_TRUE(fakes.dialogs.messages.empty());
    EXPECT_FALSE(services.windows.isLoaded("Main"));
}

TEST_F(ViewDispatchTest, WhoLeavesWhileTheElementsAreSearchedLeavesAtOnce) {
    folder.write("stations.txt", std::string(4000, '\n'));
    services.windows.show("Main");
    fakes.events.yields = 0;
    fakes.events.onYield = [this] {
        if (fakes.events.yields == 10) {
            BUTexit_Click(state, services);
            Form_Unload(form, state, services);
        }
    };
    const std::size_t logged = fakes.logLines().size();
    Form_Activate(form, state, services);
    EXPECT_EQ(fakes.events.yields, 10);
    EXPECT_EQ(fakes.logLines().size(), logged);
    EXPECT_EQ(state.MainTag, "exit");
}

TEST_F(ViewDispatchTest, TheThreeDimensionalViewLeavesMainOnTheScreen) {
    services.windows.show("Main");
    runMenuEntry("mnu3Dview", state, services);
    EXPECT_EQ(state.MainTag, "3D");
    EXPECT_TRUE(isOnScreen("Main"));

    state.NextView = "3D";
    services.windows.unload("Main");
    services.windows.show("Main");
    EXPECT_EQ(state.NextView, "");
    EXPECT_TRUE(opened.empty());
}

TEST_F(ViewDispatchTest, SwitchesActOnceInTheOrderOfTheTable) {
    state.CommandLine = "/seq /world/nwq";
    services.windows.show("Main");
    EXPECT_EQ(opened, (Texts{"WorldView worldnormal", "WorldView NWQ", "WorldView SEQ"}));
    EXPECT_EQ(state.CommandLine, "/SEQ /WORLD/NWQ");
    EXPECT_FALSE(isOnScreen("Main")) << "the world hides it";

    opened.clear();
    services.windows.unload("WorldView");
    EXPECT_TRUE(opened.empty());
}

TEST_F(ViewDispatchTest, ARegionsSwitchLeavesMainOnTheScreen) {
    state.CommandLine = "/NCQ";
    services.windows.show("Main");
    EXPECT_EQ(state.MainTag, "NCQ");
    EXPECT_TRUE(isOnScreen("Main"));
    // The window system comes behind with the focus of both.
    services.windows.focusCame("Main");
    services.windows.focusCame("WorldView");
    EXPECT_TRUE(isOnScreen("WorldView"));
    EXPECT_EQ(state.MainTag, "NCQ");

    services.windows.focusCame("Main");
    EXPECT_FALSE(isOnScreen("WorldView")) << "who goes to Main leaves the view";
    EXPECT_EQ(state.MainTag, "menu");
}

TEST_F(ViewDispatchTest, ActivationReadsTheSettingsAgain) {
    services.windows.show("Main");
    EXPECT_TRUE(form.skin.isApplied);
    fakes.settings.set("Skin", "0");
    fakes.settings.set("Compatibility", "1");
    Form_Activate(form, state, services);
    EXPECT_FALSE(form.skin.isApplied);
    EXPECT_TRUE(state.CompatibilityMode);
}

TEST_F(ViewDispatchTest, TheStatusPanelTellsElementsPlaceAndSun) {
    services.windows.show("Main");
    // The age is 235 less 233.533, which is 234.
    EXPECT_EQ((Texts{form.Status2, form.Status3, form.Status4, form.Status5}),
              (Texts{"The Keplerian Elements are 1 day old", "Current Location settings are: Vienna",
                     "48.21 deg Latitude and 343.63 deg Longitude", "170 Metres above sea level"}));
    // Vienna, 2026-08-23, one hour ahead of UTC: the almanac has 05:04, 11:57 and 18:50; the times' own
    // series are good to some minutes.
    const std::string& sun = form.lblSunRiseSet;
    ASSERT_EQ(sun.size(), std::string("Sun Rise: 05:03 - Solar Noon: 11:57 - Sun Set: 18:51").size());
    EXPECT_EQ(sun.substr(0, 10) + sun.substr(15, 15) + sun.substr(35, 12),
              "Sun Rise:  - Solar Noon:  - Sun Set: ");
    EXPECT_GT(sun.substr(10, 5), "04:55");
    EXPECT_LT(sun.substr(10, 5), "05:10");
    EXPECT_EQ(sun.substr(30, 4), "11:5");
    EXPECT_EQ(sun.substr(47, 4), "18:5");

    fakes.clock.setUtc({2027, 8, 30, 12, 0, 0});
    Form_Activate(form, state, services);
    EXPECT_EQ(form.Status2, "The Keplerian Elements are from Last year.") << "whatever their age";
}

TEST(ElementAge, HasItsWordsForEachSpan) {
    EXPECT_EQ(elementAgeText(-1), "");
    const std::vector<std::pair<int, std::string>> cases{
        {0, "Brand-new!"},   {1, "1 day old"},
        {2, "2 Days old"},   {13, "13 Days old"},
        {14, "2 weeks old"}, {27, "3 weeks old"},
        {28, "4 weeks old"}, {29, "more than a Month old (29 days)"}};
    for (const auto& [days, words] : cases)
        EXPECT_EQ(elementAgeText(days), "The Keplerian Elements are " + words);
}

TEST_F(ViewDispatchTest, WithoutGroupsThePanelStaysAndWithoutTheirFilesPlaceAndSunAreToldAllTheSame) {
    folder.write("groups.dat", "\r\n          ");
    services.windows.show("Main");
    EXPECT_EQ(form.Status2 + form.Status3 + form.lblSunRiseSet, "");
    EXPECT_TRUE(fakes.logLines().empty());
    services.windows.unload("Main");
    folder.write("groups.dat", "Gone,example.org/gone.txt,0\r\n");
    services.windows.show("Main");
    EXPECT_EQ(form.Status3, "Current Location settings are: Vienna");
    EXPECT_NE(form.lblSunRiseSet, "");
    EXPECT_EQ(form.Status2, "") << "nobody knows an age";
    EXPECT_EQ(fakes.logged(labels::mainFormActivate), 3) << "the line, its year, its day";
}

TEST_F(ViewDispatchTest, NavigationSatellitesOfAFreshFileAreKnownByTheirShortNames) {
    std::string fresh(stationSets);
    fresh.replace(fresh.find("ISS (ZARYA)         "), 20, "GPS BIIR-5  (PRN 22)");
    folder.write("gps-ops.txt", fresh);
    folder.write("faves.dat", "GPS PRN 22\r\n");
    services.windows.show("Main");
    EXPECT_EQ(state.Favourites[1].Name, "GPS PRN 22");
    folder.write("gps-ops.txt", fresh);
    Form_Activate(form, state, services);
    EXPECT_NO_THROW(state.OrbitEngine->EngineTrack("GPS PRN 22", 2461275.5, 0, 0));
}

}  // namespace
}  // namespace vantrace
