#include "mapview/world_view.h"

#include "mapview/satellite_choice.h"
#include "mapview/world_map.h"
#include "mapview/world_view_menu.h"
#include "tests/mapview/map_test.h"
#include "tests/support/fake_window.h"

namespace vantrace {
namespace {

class WorldViewTest : public MapTest {
  protected:
    WorldViewTest() {
        addFavourite("ISS (ZARYA)");
        addFavourite("FUNCUBE-1 (AO-73)");
        addFavourite("INTELSAT 10-02");
        fakes.folder.write("satellite.dat", "***\r\n***\r\n");
    }
    void load() {
        Form_Load(world);
        form.innerWidth = 813;
        form.innerHeight = 507;
        Form_Resize(world);
        fakes.windows.show("WorldView");
        Form_Activate(world);
    }
    std::string setting(const char* key) { return fakes.settings.get(key).value_or("-"); }

    WindowScript& main = fakes.fakeWindow("Main");
    WindowScript& view = fakes.fakeWindow("WorldView");
    MapSurfaces surfaces;
    WorldMap world{form, map, surfaces, state, services};
};

TEST_F(WorldViewTest, LoadingChoosesTheFirstFavouriteAndStartsTheClock) {
    fakes.settings.set("RecPrimary", "1");
    load();
    EXPECT_EQ(state.PrimarySatIndex, 1);
    EXPECT_EQ(state.PrimarySatName, "ISS (ZARYA)");
    EXPECT_EQ(form.Timer1, (TimerState{1000, true})) << "the first frame comes soon";
    EXPECT_EQ(form.Timer2, (TimerState{60000, true}));
    EXPECT_FALSE(form.MspeechONoff.isEnabled);
    EXPECT_FALSE(form.MspeechONoff.isChecked);
    EXPECT_TRUE(form.MrecordONoff.isChecked);
    EXPECT_EQ(form.place.widthTwips, 12195.0F);
    EXPECT_EQ(form.MFaveList,
              (Texts{"-Select a Satellite-", "ISS (ZARYA)", "FUNCUBE-1 (AO-73)", "INTELSAT 10-02"}));
    EXPECT_NE(map.GroundTrackPoints[180].Latitude, 0);
    EXPECT_EQ(surfaces.WorldNormal.width(), 0) << "there is no map's picture in the folder";
}

TEST_F(WorldViewTest, WhileAnotherViewIsWantedItStaysIdleAndATickEndsIt) {
    for (const char* const word : {"menu", "3D", "horizon", "ETA", "passprediction", "tabular"}) {
        WorldViewForm idle;
        WorldMap other{idle, map, surfaces, state, services};
        state.MainTag = word;
        Form_Load(other);
        EXPECT_FALSE(idle.Timer1.isEnabled || idle.Timer2.isEnabled) << word;
    }
    EXPECT_EQ(state.PrimarySatIndex, 0);
    for (const char* const word : {"menu", "3D"}) {
        state.MainTag = "worldnormal";
        load();
        state.MainTag = word;
        Timer1_Timer(world);
        EXPECT_FALSE(form.Timer1.isEnabled);
        EXPECT_FALSE(fakes.windows.isLoaded("WorldView")) << word;
    }
    EXPECT_EQ(form.frames, 0U);
}

TEST_F(WorldViewTest, PaneAndMapStandSideBySide) {
    load();
    const auto places = [&] {
        return std::tuple(form.layout.Final.width, form.layout.expandLeft, form.layout.paneLeft,
                          form.layout.notesHeight);
    };
    EXPECT_EQ(places(), std::tuple(613, 613, 627, 187));
    EXPECT_EQ(form.layout.Final.height, 507);
    BUTexpand_Click(world);
    EXPECT_EQ(form.layout.expandLeft, 799);
    EXPECT_EQ(form.layout.Final.width, 799);
    EXPECT_EQ(surfaces.Final.width(), 799) << "and a frame is painted at once";
    EXPECT_EQ(setting("ShowInfoPane"), "1") << "the choice is not kept";
    BUTexpand_Click(world);
    EXPECT_EQ(places(), std::tuple(613, 613, 627, 187));

    form.innerWidth = 120;
    form.innerHeight = 100;
    Form_Resize(world);
    EXPECT_EQ(form.layout.Final.width, 80) << "never negative, though narrower than the pane";
    EXPECT_EQ(form.layout.notesHeight, 220);

    form.place.isMinimised = true;
    form.innerWidth = 500;
    Form_Resize(world);
    EXPECT_EQ(form.layout.Final.width, 80);
    EXPECT_TRUE(form.Timer1.isEnabled);
    state.MainTag = "menu";
    Form_Resize(world);
    EXPECT_FALSE(form.Timer1.isEnabled || form.Timer2.isEnabled);
}

TEST_F(WorldViewTest, ATickPlacesTheFavouritesAndPaints) {
    load();
    fakes.settings.set("MapUpdate", "7");
    Timer1_Timer(world);
    EXPECT_EQ(form.Timer1.intervalMs, 7000);
    EXPECT_NE(state.Favourites[2].Latitude, 0);
    EXPECT_EQ(form.frames, 1U);
    EXPECT_TRUE(form.txtQuickETA.isEmpty()) << "nobody sees the coming passes";

    // A clock without an interval would stop the map.
    for (const char* const wrong : {"0", "-3", "x", "1e9"}) {
        fakes.settings.set("MapUpdate", wrong);
        Timer1_Timer(world);
        EXPECT_EQ(form.Timer1, (TimerState{7000, true})) << wrong;
    }
    EXPECT_EQ(fakes.logged(labels::mapTimer1), 4);

    BUTimode_Click(world, 1);
    Timer1_Timer(world);
    EXPECT_FALSE(form.txtQuickETA.isEmpty());
}

TEST_F(WorldViewTest, TheSlowClockRenewsTrackAndSunOnceInSevenTicks) {
    load();
    std::vector<int> tracks;
    std::vector<int> suns;
    for (int i = 0; i < 14; ++i) {
        spoilTables();
        Timer2_Timer(world);
        if (isTrackNew()) tracks.push_back(i);
        if (isSunNew()) suns.push_back(i);
    }
    EXPECT_EQ(tracks, (std::vector<int>{2, 9}));
    EXPECT_EQ(suns, (std::vector<int>{6, 13}));
    fakes.settings.set("ShowGroundtrack", "0");
    form.Timer2Ticks = 2;
    spoilTables();
    Timer2_Timer(world);
    EXPECT_FALSE(isTrackNew());

    state.MainTag = "tabular";
    Timer2_Timer(world);
    EXPECT_FALSE(form.Timer1.isEnabled || form.Timer2.isEnabled);
    EXPECT_EQ(form.Timer2Ticks, 3);
}

TEST_F(WorldViewTest, TheSlowClockSpeaksWhereSpeechIsPossibleTheOtherOneWhereItIsWanted) {
    fakes.settings.set("Speechpack", "1");
    load();
    // Below the horizon, and about to rise: the panel shows one of two.
    const double rise =
        state.OrbitEngine->EngineNextAOS("ISS (ZARYA)", packDateTime({2026, 8, 21, 20, 0, 0}));
    fakes.clock.setUtc(dateParts(rise - 120.0 / 86400), 120);
    for (int i = 1; i <= 2; ++i) state.Favourites[i] = {"ISS (ZARYA)", 0, 0, 0, 0, -5};
    state.FavouriteCount = 2;
    form.MspeechONoff.isChecked = false;
    Timer2_Timer(world);
    EXPECT_EQ(fakes.speech.texts.size(), 1U);
    form.txtQuickETA.clear();
    form.txtQuickETA.isVisible = true;
    Timer1_Timer(world);
    EXPECT_FALSE(form.txtQuickETA.isEmpty());
    EXPECT_EQ(fakes.speech.texts.size(), 1U);
}

TEST_F(WorldViewTest, TheListIsGoneThroughRoundItsEnds) {
    load();
    Mprevsat_Click(world);
    EXPECT_EQ(state.PrimarySatIndex, 3);
    EXPECT_EQ(state.PrimarySatName, "INTELSAT 10-02");
    Mnextsat_Click(world);
    EXPECT_EQ(state.PrimarySatName, "ISS (ZARYA)");
    MFaveList_Click(world, 0);
    EXPECT_EQ(state.PrimarySatIndex, 1);
    map.GroundTrackPoints[5].Latitude = 99;
    MFaveList_Click(world, 2);
    EXPECT_EQ(state.PrimarySatName, "FUNCUBE-1 (AO-73)");
    EXPECT_NE(map.GroundTrackPoints[5].Latitude, 99);

    state.FavouriteCount = 0;
    Mnextsat_Click(world);
    Mprevsat_Click(world);
    EXPECT_EQ(state.PrimarySatIndex, 2);
}

TEST_F(WorldViewTest, TheChoiceOutlivesAnEditOfTheFavourites) {
    load();
    MFaveList_Click(world, 3);
    std::swap(state.Favourites[1], state.Favourites[3]);
    Form_Activate(world);
    EXPECT_EQ(state.PrimarySatIndex, 1);
    EXPECT_EQ(state.PrimarySatName, "INTELSAT 10-02");
    MFaveList_Click(world, 2);
    state.FavouriteCount = 1;
    form.IPtext = "notes on another";
    Form_Activate(world);
    EXPECT_EQ(state.PrimarySatIndex, 1) << "the one that was chosen is a favourite no more";
    EXPECT_EQ(state.PrimarySatName, "INTELSAT 10-02");
    EXPECT_NE(form.IPtext, "notes on another");
}

TEST_F(WorldViewTest, AClickChoosesTheClosestByTheSumOfBothAxes) {
    load();
    form.layout.Final = {360, 180};
    state.Favourites[1] = {"ISS (ZARYA)", 0, 180, 0, 0, 0};         // x 0, y 90
    state.Favourites[2] = {"FUNCUBE-1 (AO-73)", 70, 160, 0, 0, 0};  // x 20, y 20
    state.Favourites[3] = {"INTELSAT 10-02", 70, 160, 0, 0, 0};     // the same place
    Final_MouseDown(world, 1, 30, 40);                              // 30+50 and 10+20 away
    EXPECT_EQ(state.PrimarySatIndex, 2) << "of equals the first";
    Final_MouseDown(world, 1, 0, 75);  // 15 from the first
    EXPECT_EQ(state.PrimarySatIndex, 1);
    Final_MouseDown(world, 2, 20, 20);
    EXPECT_EQ(state.PrimarySatIndex, 1);
    EXPECT_EQ(form.popUps, 1U);
    state.FavouriteCount = 0;
    Final_MouseDown(world, 1, 0, 0);
    EXPECT_EQ(state.PrimarySatIndex, 0);
    EXPECT_EQ(state.PrimarySatName, "ISS (ZARYA)");
}

TEST_F(WorldViewTest, TimeWarpStartsAtTheClockAndRunsAtTheSlidersSpeed) {
    load();
    form.SliderWarp = 5;
    SliderWarp_Change(world);
    EXPECT_EQ(form.TimeWarp, 0);
    form.Timer1.intervalMs = 2000;
    BUTtime_Click(world, 1);
    EXPECT_EQ(form.TimeWarp, 5);
    EXPECT_EQ(form.Timer1.intervalMs, 1000);
    EXPECT_EQ(warped(), (DateParts{2026, 8, 21, 22, 0, 0})) << "local time";
    form.SliderWarp = 30;
    SliderWarp_Change(world);
    EXPECT_EQ(form.TimeWarp, 30);

    // At 22:00:15 both tables are made anew; at 22:00:16 none is.
    for (const int second : {15, 16}) {
        fakes.clock.setUtc({2026, 8, 21, 20, 0, second}, 120);
        spoilTables();
        Timer1_Timer(world);
        EXPECT_EQ(isSunNew(), second == 15);
        EXPECT_EQ(isTrackNew(), second == 15);
    }

    fakes.settings.set("ShowGroundtrack", "0");
    BUTtime_Click(world, 0);
    EXPECT_EQ(form.TimeWarp, 0);
    EXPECT_TRUE(isTrackNew()) << "whatever the setting";
}

TEST_F(WorldViewTest, EntriesChangeTheViewTheSettingsAndTheNextView) {
    load();
    for (const auto& [entry, tag] : {std::pair("Mnwq", "NWQ"),
                                     {"Mncq", "NCQ"},
                                     {"Mneq", "NEQ"},
                                     {"Mswq", "SWQ"},
                                     {"Mscq", "SCQ"},
                                     {"Mseq", "SEQ"},
                                     {"Mworld", "worldnormal"}}) {
        runMapEntry(entry, world);
        EXPECT_EQ(state.MainTag, tag);
    }
    fakes.settings.set("AltWorld", "1");
    runMapEntry("Mworld", world);
    EXPECT_EQ(state.MainTag, "worldalt");
    EXPECT_EQ(form.frames, 0U) << "the view changes with the next frame";

    for (const auto& [entry, key, value] : {std::tuple("MrecordONoff", "RecWxsat", "1"),
                                            {"MrecordONoff", "RecWxsat", "0"},
                                            {"MrecordONoffP", "RecPrimary", "1"},
                                            {"MspeechONoff", "Speech", "1"}}) {
        runMapEntry(entry, world);
        EXPECT_EQ(setting(key), value);
    }
    EXPECT_TRUE(state.SpeechEnabled);

    runMapEntry("mnuHorizon", world);
    EXPECT_TRUE(fakes.windows.isLoaded("WorldView")) << "there is no such view";
    fakes.fakeWindow("Horizon");
    runMapEntry("mnuHorizon", world);
    EXPECT_EQ(state.NextView, "Horizon");
    EXPECT_FALSE(fakes.windows.isLoaded("WorldView"));
}

TEST_F(WorldViewTest, TheTrackersWindowIsMadeBeforeItIsToldTheSatellite) {
    load();
    WindowScript& tracker = fakes.fakeWindow("frmTracker");
    tracker.onLoad = [&] { EXPECT_EQ(state.TrackerTag, ""); };
    Timer1_Timer(world);
    EXPECT_EQ(tracker.made, 0) << "a tick makes no tracker";
    runMapEntry("mnuRadRot", world);
    EXPECT_EQ(state.TrackerTag, "ISS (ZARYA)");
    EXPECT_TRUE(fakes.windows.isOnScreen("frmTracker"));
    Mnextsat_Click(world);
    Timer1_Timer(world);
    EXPECT_EQ(state.TrackerTag, "FUNCUBE-1 (AO-73)");
}

TEST_F(WorldViewTest, UnloadingEmptiesTheTracksAndShowsMain) {
    load();
    Timer1_Timer(world);
    Form_Unload(world);
    EXPECT_FALSE(form.Timer1.isEnabled || form.Timer2.isEnabled);
    for (int i = 0; i <= 600; ++i) ASSERT_EQ(map.GroundTrackPoints[i].Latitude, 0);
    for (int i = 0; i <= 360; ++i) ASSERT_EQ(map.FootprintPoints[i].Longitude, 0);
    EXPECT_NE(map.FootprintPoints[361].Longitude, 0) << "behind what is emptied";
    EXPECT_EQ(main.count("show"), 1);
}

TEST_F(WorldViewTest, WithoutFavouritesAndInAWindowOfNoSizeNothingFails) {
    state.FavouriteCount = 0;
    state.Favourites[1] = {};
    load();
    for (const int size : {0, 1, 14, 200}) {
        form.innerWidth = form.innerHeight = size;
        Form_Resize(world);
        Timer1_Timer(world);
        Timer2_Timer(world);
        BUTexpand_Click(world);
        BUTexpand_Click(world);
    }
    // Without a satellite there is no track to be made, and without a map nothing to be stretched.
    for (const std::string& line : fakes.logLines()) {
        EXPECT_TRUE(line.ends_with("StretchBlt error") || line.ends_with(labels::mapviewCalcGroundTrack) ||
                    line.ends_with(labels::globalSatcalc))
            << line;
    }
}

}  // namespace
}  // namespace vantrace
