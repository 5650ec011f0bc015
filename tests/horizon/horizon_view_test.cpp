#include "horizon/horizon_view.h"

#include "tests/horizon/horizon_test.h"
#include "tests/support/fake_window.h"

namespace vantrace {
namespace {

class HorizonViewTest : public HorizonTest {
  protected:
    HorizonViewTest() {
        addFavourite("ISS (ZARYA)");
        addFavourite("INTELSAT 10-02");
    }

    WindowScript& main = fakes.fakeWindow("Main");
    WindowScript& window = fakes.fakeWindow("Horizon");
};

TEST_F(HorizonViewTest, LoadingReadsPlaceAndLandscapeAndStartsTheClock) {
    fakes.settings.set("HorizonFile", "hills");
    fakes.settings.set("WinPosW", "9000");
    fakes.folder.write("hills.jpg", "there");
    fakes.pictures.files.emplace(state.AppPath + "hills.jpg", Surface(7, 5));
    Form_Load(view);
    EXPECT_EQ(surfaces.BackDrop.width(), 7);
    EXPECT_EQ(form.place.widthTwips, 9000.0F);
    EXPECT_TRUE(form.Timer1Sec.isEnabled);
    EXPECT_EQ(form.Timer5sec, (TimerState{8000, true}));

    // A file that is no picture leaves the landscape, and the log tells.
    fakes.settings.set("HorizonFile", "broken");
    fakes.folder.write("broken.jpg", "no picture");
    Form_Load(view);
    EXPECT_EQ(surfaces.BackDrop.width(), 7);
    EXPECT_EQ(fakes.logged(labels::horizonFormLoad), 1);
}

TEST_F(HorizonViewTest, TheMarksTurnOverEvenWhenNothingChanges) {
    runHorizonEntry("Mnorth", view);
    EXPECT_TRUE(form.CenteredNorth && form.Mnorth.isChecked && !form.Msouth.isChecked);
    runHorizonEntry("Mnorth", view);
    EXPECT_TRUE(form.CenteredNorth && !form.Mnorth.isChecked && form.Msouth.isChecked);
    runHorizonEntry("Msouth", view);
    EXPECT_TRUE(!form.CenteredNorth && form.Mnorth.isChecked);
}

TEST_F(HorizonViewTest, TheAnnouncerSpeaksOfTheSelectedOneWhenAsked) {
    state.Favourites[2].Azimuth = 179.9;
    state.Favourites[2].Elevation = -0.5;
    Timer5sec_Timer(view);
    EXPECT_EQ(form.Timer5sec.intervalMs, 9000);
    runHorizonEntry("Mposannounce", view);
    Timer5sec_Timer(view);
    EXPECT_TRUE(fakes.speech.texts.empty()) << "nothing is selected";
    state.PrimarySatIndex = 2;
    Timer5sec_Timer(view);
    EXPECT_EQ(fakes.speech.texts, Texts{"Heading 179, Elevation -1"});

    state.Favourites[1].Elevation = 0;
    bool wasOff = false;
    fakes.events.onYield = [&] { wasOff = wasOff || !form.Timer5sec.isEnabled; };
    runHorizonEntry("mnuSpeechAnnouncment", view);
    EXPECT_TRUE(wasOff);
    EXPECT_EQ(fakes.speech.texts.back(), "The International Space station Azimuth 0 Elevation 0. ");
    EXPECT_EQ(form.Timer5sec, (TimerState{60000, true}));
}

TEST_F(HorizonViewTest, AClickSelectsTheClosestAndSaysSo) {
    state.Favourites[1] = {"ISS (ZARYA)", 0, 0, 0, 90, 45};      // x 180, y 90
    state.Favourites[2] = {"INTELSAT 10-02", 0, 0, 0, 100, 80};  // x 200, y 20
    Final_MouseDown(view, 185, 60);                              // 35 and 55 away
    EXPECT_EQ(state.PrimarySatIndex, 1);
    EXPECT_EQ(fakes.speech.texts.back(), "Selected Satellite The International Space station");
    form.CenteredNorth = true;
    Final_MouseDown(view, 560, 30);
    EXPECT_EQ(state.PrimarySatIndex, 2);
    EXPECT_EQ(state.PrimarySatName, "") << "the name is left alone";
}

TEST_F(HorizonViewTest, OtherViewsAreOpenedByMain) {
    fakes.windows.show("Horizon");
    runHorizonEntry("mnuWorld", view);
    EXPECT_TRUE(fakes.windows.isLoaded("Horizon")) << "there is no map";
    fakes.fakeWindow("WorldView");
    runHorizonEntry("mnuWorld", view);
    EXPECT_EQ(state.NextView, "world");
    EXPECT_FALSE(fakes.windows.isLoaded("Horizon"));
    fakes.windows.show("Horizon");
    runHorizonEntry("mnu3Dview", view);
    EXPECT_EQ(state.NextView, "3D");
    EXPECT_FALSE(fakes.windows.isLoaded("Horizon"));
    Form_Unload(view);
    EXPECT_EQ(main.count("show"), 1);
    EXPECT_FALSE(form.Timer1Sec.isEnabled || form.Timer5sec.isEnabled);
}

TEST_F(HorizonViewTest, EmptyListsAndWindowsOfNoSizeDoNotFail) {
    state.FavouriteCount = 0;
    for (const int size : {0, 1, 5}) {
        form.innerWidth = form.innerHeight = size;
        Timer1Sec_Timer(view);
        Final_MouseDown(view, 0, 0);
    }
    EXPECT_EQ(form.frames, 3U);
    EXPECT_TRUE(fakes.logLines().empty()) << fakes.logLines().front();
}

}  // namespace
}  // namespace vantrace
