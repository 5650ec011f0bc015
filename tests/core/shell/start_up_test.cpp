#include "core/shell/start_up.h"

#include "core/labels.h"
#include "core/shell/view_dispatch.h"
#include "core/version.h"
#include "tests/core/shell/shell_test.h"

namespace vantrace {
namespace {

class StartUpTest : public ShellTest {
  protected:
    void start() {
        Form_Initialize(state, services);
        Form_Load(form, state, services);
    }
};

TEST_F(StartUpTest, FillsTheStateAndGreets) {
    writeSite();
    fakes.settings.set("Speechpack", "1");
    fakes.settings.set("Voice", "0");
    start();
    const std::string version(shortVersion);
    EXPECT_EQ((Texts{form.Caption, form.Label2, form.Dstatus, state.Favourites[1].Name, state.ObserverName}),
              (Texts{"Vantrace v" + version, "v" + version, "2 Satellites in the Keplerian Files (1 groups)",
                     "ISS (ZARYA)", "Vienna"}));
    EXPECT_EQ(state.ObserverHeight, 170);
    EXPECT_DOUBLE_EQ(state.OrbitEngine->EngineGetLongitude(), 360 - 343.63);
    ASSERT_EQ(fakes.speech.texts.size(), 2u);
    EXPECT_TRUE(fakes.speech.texts[0].starts_with("Welcome to Van Trace. version 0 point "));
    EXPECT_EQ(fakes.speech.texts[1], form.Dstatus);
    EXPECT_EQ(fakes.speech.speed, 180);
    EXPECT_EQ(fakes.speech.voiceNumber, 1);
    EXPECT_TRUE(form.skin.isApplied);
    EXPECT_TRUE(fakes.logLines().empty());
    EXPECT_TRUE(fakes.dialogs.messages.empty());
}

TEST_F(StartUpTest, TheSettingsOpenOnceWhereNobodyHasToldThePlace) {
    WindowScript& settings = fakeWindow("frmCONmain");
    fakes.settings.set("Skin", "1");
    start();
    state.CommandLine = "/WORLD";
    fakeWindow("WorldView");
    Form_Activate(form, state, services);
    EXPECT_EQ(settings.made, 0) << "the map was asked for";
    Form_Activate(form, state, services);
    EXPECT_TRUE(services.windows.isOnScreen("frmCONmain"));
    services.windows.unload("frmCONmain");
    Form_Activate(form, state, services);
    start();
    Form_Activate(form, state, services);
    EXPECT_EQ(settings.made, 1) << "by now the place is stored, if only the default";
}

TEST_F(StartUpTest, AWindowThatStaysOpenKeepsTheProgram) {
    WindowScript& settings = fakeWindow("frmCONmain");
    WindowScript& groups = fakeWindow("frmCONGroups");
    services.windows.show("frmCONmain");
    services.windows.show("frmCONGroups");
    settings.staysOpen = true;
    EXPECT_FALSE(mayEnd(services));
    settings.staysOpen = false;
    EXPECT_TRUE(mayEnd(services));
    EXPECT_EQ(groups.count("unload"), 1) << "the favourites are stored";
}

TEST_F(StartUpTest, OnlyFontSizesAboveAHundredAreMended) {
    fakes.settings.set("3DFontSize", "100");
    Form_Initialize(state, services);
    EXPECT_EQ(fakes.settings.get("3DFontSize"), "100");
    fakes.settings.set("3DFontSize", "100.5");
    Form_Initialize(state, services);
    EXPECT_EQ(fakes.settings.get("3DFontSize"), "20");
}

TEST_F(StartUpTest, AMissingDataFileEndsTheProcessAndNothingElseHappens) {
    for (const char* const name : {"faves.dat", "groups.dat", "locations.dat", "satellite.dat", "pass.dat"}) {
        std::filesystem::rename(folder.path() / name, folder.path() / "aside");
        start();
        EXPECT_EQ(fakes.process.ends.size(), 1u) << name;
        EXPECT_EQ(fakes.dialogs.messages,
                  std::vector{std::string(name) + " is missing from the vantrace folder. Can't Continue"});
        EXPECT_EQ(form.Dstatus, "");
        fakes.process.ends.clear();
        fakes.dialogs.messages.clear();
        std::filesystem::rename(folder.path() / "aside", folder.path() / name);
    }
}

TEST_F(StartUpTest, AShortListIsToldAndTheStartGoesOn) {
    folder.write("faves.dat", "ISS\n");
    folder.write("groups.dat", "a,b,0\r\n\r\n");
    start();
    ASSERT_EQ(fakes.dialogs.messages.size(), 2u);
    EXPECT_EQ(
        fakes.dialogs.messages[0],
        "There may be a problem with your FAVES.DAT file, it may be corrupt, or simply empty. If its empty "
        "ignore this.");
    EXPECT_EQ(fakes.dialogs.messages[1], "There may be a problem with your GROUPS.DAT file");
    EXPECT_EQ(form.Dstatus, "2 Satellites in the Keplerian Files (1 groups)");

    fakes.dialogs.messages.clear();
    folder.write("faves.dat", "ISS\r\n");
    folder.write("groups.dat", "a,b.txt,0\n");
    start();
    EXPECT_TRUE(fakes.dialogs.messages.empty()) << "5 and 10 bytes are long enough";
}

TEST_F(StartUpTest, PlacesThatAreSkippedLeaveOneLineInTheLog) {
    folder.write("locations.dat", "1Kept;1;2;3\r\n1A;1;2;high\r\n1;1;2;3\r\n1Also kept;1;2;3\r\n");
    start();
    EXPECT_EQ(state.Locations[2].Name, "Also kept");
    const Texts lines = fakes.logLines();
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_NE(lines[0].find("locations.dat: 2 line(s) skipped, the first one: 1A;1;2;high"),
              std::string::npos)
        << lines[0];
}

TEST_F(StartUpTest, AFailedStepIsLoggedWithItsPhaseAndTheNextOneRuns) {
    fakes.settings.set("Speechpack", "1");
    fakes.settings.set("SpeechSpeed", "99999");
    fakes.settings.set("Latitude", "north");
    fakes.settings.set("Longitude", "10");
    start();
    const Texts lines = fakes.logLines();
    EXPECT_EQ(std::ranges::count_if(
                  lines, [](const auto& line) { return line.ends_with(" (Speechpack) - Main Form Load"); }),
              1);
    EXPECT_EQ(fakes.logged(labels::mainLoadAllSettings), 1);
    EXPECT_EQ(state.ObserverLatitude, 0);
    EXPECT_EQ(state.ObserverLongitude, 10);
    EXPECT_EQ(form.Dstatus, "2 Satellites in the Keplerian Files (1 groups)");
    services.format.decimalMark = ',';
    fakes.settings.set("HASL", "high");
    start();
    EXPECT_EQ(fakes.logged(labels::mainLoadAllSettings), 3) << "latitude and height, once each";
}

TEST_F(StartUpTest, AProgramWithoutVoiceOrSwitchOfTheScreenStartsAllTheSame) {
    fakes.settings.set("Speechpack", "1");
    fakes.settings.set("ChangeRes", "1");
    fakes.speech.fails = true;
    fakes.displayMode.available.clear();
    start();
    Form_QueryUnload(form, services);
    EXPECT_EQ(form.Caption, "Vantrace v" + std::string(shortVersion));
    EXPECT_EQ(fakes.logged(labels::mainFormLoad), 2);
    EXPECT_EQ(fakes.logged(labels::mainLoadAllSettings), 1);
    EXPECT_TRUE(fakes.displayMode.changes.empty());
}

TEST(StartUpOnACommaMachine, ReadsThePointsOfTheStoredPlaceAsCommas) {
    MachineFormat format;
    format.decimalMark = ',';
    TestServices fakes(format);
    fakes.settings.set("Latitude", "48.21");
    fakes.settings.set("Longitude", "343,63");
    fakes.settings.set("HASL", "170");
    ProgramState state;
    state.AppPath = fakes.folder.appPath();
    LoadAllSettings(state, fakes.services);
    EXPECT_DOUBLE_EQ(state.ObserverLatitude, 48.21);
    EXPECT_DOUBLE_EQ(state.ObserverLongitude, 343.63);
    EXPECT_EQ(state.ObserverHeight, 170);
    EXPECT_EQ(fakes.logged(labels::mainLoadAllSettings), 6) << "no lists, no engine; but no number failed";
}

TEST_F(StartUpTest, TheScreenIsSwitchedAtTheStartAndAtTheEnd) {
    fakes.settings.set("ChangeRes", "1");
    start();
    Form_QueryUnload(form, services);
    ASSERT_EQ(fakes.displayMode.changes.size(), 2u);
    EXPECT_EQ(fakes.displayMode.changes[0].width, 800);
    EXPECT_EQ(fakes.displayMode.changes[0].height, 600);
    EXPECT_EQ(fakes.displayMode.changes[0].bitsPerPixel, 32) << "the last mode with another size";
    EXPECT_EQ(fakes.displayMode.changes[1].width, 640);
}

TEST_F(StartUpTest, TheEndReleasesTheEngineAndTheWindows) {
    WindowScript& view = fakeWindow("WorldView");
    start();
    services.windows.show("WorldView");
    Form_Unload(form, state, services);
    EXPECT_EQ(state.OrbitEngine, nullptr);
    EXPECT_FALSE(services.windows.isOnScreen("WorldView"));
    EXPECT_EQ(view.count("unload"), 0) << "a view that is told would bring Main back";
}

}  // namespace
}  // namespace vantrace
