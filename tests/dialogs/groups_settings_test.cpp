#include "dialogs/groups_settings.h"

#include "catalogue/favourites.h"
#include "catalogue/groups.h"
#include "core/labels.h"
#include "platform/file_error.h"
#include "tests/dialogs/groups_test.h"

namespace vantrace {
namespace {

using GroupsSettingsTest = GroupsTest;

TEST_F(GroupsSettingsTest, OpensWithTheFirstGroupAndItsFavouritesTicked) {
    addFavourite("BRAVO");
    load();
    EXPECT_EQ(form.GroupList.list, (Texts{"Letters", "Others", "Missing"}));
    EXPECT_EQ(form.GroupList.selected, 0);
    EXPECT_EQ(satellites(), (Texts{"ALPHA", "BRAVO", "CHARLIE"}));
    EXPECT_EQ(ticked(), Texts{"BRAVO"});
    EXPECT_EQ(state.FavouriteCount, 1) << "the program's own ticks add nothing";
    EXPECT_EQ(form.Details, "No Information.");
    EXPECT_EQ(form.COMCelestrak.text, "Select a Celestrak Group");
    Texts labels;
    std::string files;
    for (const ElementFileRow& row : publicElementFiles()) {
        labels.emplace_back(row.label);
        files += " " + std::string(row.file);
    }
    EXPECT_EQ(form.COMCelestrak.list, labels);
    std::string listed;
    for (const std::string& label : labels) listed += label + "|";
    EXPECT_EQ(
        listed,
        "Amateur|Educational|Engineering|Geostationary|Geodetic|Globalstar|GOES Weather|Gorizont|"
        "GPS Navigation|IntelSat|Iridium|Molniya|Russian Navigation|Navy Navigation|NOAA Weather|Orbcomm|"
        "Other Comms|Radar Calibration|Raduga|Earth Resources|Search and Rescue|Space Stations|"
        "Tracking and Data Relay|New Launches|Bright and visual|Weather|Experimental|");
    EXPECT_EQ(
        files,
        " amateur.txt education.txt engineering.txt geo.txt geodetic.txt globalstar.txt goes.txt "
        "gorizont.txt gps-ops.txt intelsat.txt iridium.txt molniya.txt musson.txt nnss.txt noaa.txt "
        "orbcomm.txt other-comm.txt radar.txt raduga.txt resource.txt sarsat.txt stations.txt tdrss.txt "
        "tle-new.txt visual.txt weather.txt x-comm.txt");
}

TEST_F(GroupsSettingsTest, AGroupIsRealSetsWithNamesCutToFifteen) {
    const std::string text = "a remark\r\nanother\r\n" + setOf("A NAME THAT IS TOO LONG", "26233.53315667") +
                             setOf("NO EPOCH", "00000.00000000") + setOf("  LAST  ", "26233.5") +
                             "ONLY A NAME\r\n";
    fakes.folder.write("others.txt", text);
    load();
    choose(1);
    EXPECT_EQ(satellites(), (Texts{"A NAME THAT IS", "LAST"}));
    for (const char* const end : {"", "CUT SHORT", "CUT SHORT\r\n1 00001U", "   \r\n1 x\r\n2 x\r\n"}) {
        fakes.folder.write("others.txt", setOf("FIRST", "26233.5") + end);
        choose(1);
        EXPECT_EQ(satellites(), Texts{"FIRST"}) << end;
    }
    EXPECT_TRUE(messages().empty());
}

TEST_F(GroupsSettingsTest, AMissingFileIsToldAndTheListStays) {
    load();
    choose(2);
    EXPECT_EQ(messages(),
              Texts{"gone.txt satellite group keps are not updated yet, the keplerian file doesn't exist"});
    EXPECT_EQ(satellites().size(), 3U);
    state.Groups[3].Url = "";
    choose(2);
    EXPECT_EQ(messages().size(), 2U);
    state.Groups[3].Url = "folder/..";
    choose(2);
    EXPECT_EQ(fakes.logged(labels::conGroupsGrouplistClick), 1) << "a folder is no file";
}

TEST_F(GroupsSettingsTest, OnlyTheUsersTicksChangeFavourites) {
    load();
    tickSatellite(form, state, services, 0, true);
    EXPECT_EQ(state.FavouriteCount, 0);
    EXPECT_EQ(ticked(), Texts{"ALPHA"});
    SatelliteList_MouseDown(form);
    tickSatellite(form, state, services, 0, false);
    tickSatellite(form, state, services, 2, true);
    tickSatellite(form, state, services, 2, true);
    SatelliteList_MouseUp(form);
    EXPECT_EQ(favourites(), Texts{"CHARLIE"});
    SatelliteList_MouseDown(form);
    tickSatellite(form, state, services, 2, false);
    EXPECT_EQ(state.FavouriteCount, 0);
}

TEST_F(GroupsSettingsTest, SelectAllLeavesTheNextGroupDoubled) {
    addFavourite("DELTA");
    load();
    BUTsel_Click(form, state, services);
    EXPECT_EQ(favourites(), (Texts{"DELTA", "ALPHA", "BRAVO", "CHARLIE"}));
    EXPECT_EQ(fakes.events.yields > 0, true);
    choose(1);
    EXPECT_EQ(favourites(), (Texts{"DELTA", "ALPHA", "BRAVO", "CHARLIE", "DELTA"}));
    SatelliteList_MouseUp(form);
    choose(1);
    EXPECT_EQ(state.FavouriteCount, 5) << "until the mouse is released";
    choose(0);
    BUTdesel_Click(form, state, services);
    EXPECT_EQ(favourites(), (Texts{"DELTA", "DELTA"}));
    EXPECT_TRUE(form.UserIsChecking);
    SatelliteList_MouseUp(form);
    addFavourite("BRAVO");
    choose(0);
    BUTsel_Click(form, state, services);
    EXPECT_EQ(favourites(), (Texts{"DELTA", "DELTA", "BRAVO", "ALPHA", "CHARLIE"})) << "none that is ticked";
    EXPECT_EQ(ticked(), (Texts{"ALPHA", "BRAVO", "CHARLIE"}));
}

TEST_F(GroupsSettingsTest, ASatelliteInTwoGroupsIsTickedInBoth) {
    fakes.folder.write("others.txt", setOf("ALPHA", "26233.5"));
    addFavourite("ALPHA");
    load();
    EXPECT_EQ(ticked(), Texts{"ALPHA"});
    choose(1);
    EXPECT_EQ(ticked(), Texts{"ALPHA"});
    SatelliteList_MouseDown(form);
    tickSatellite(form, state, services, 0, false);
    SatelliteList_MouseUp(form);
    choose(0);
    EXPECT_TRUE(ticked().empty());
}

TEST_F(GroupsSettingsTest, TheThreeDimensionalViewIsWarnedOfOnce) {
    state.ThreeDViewActive = true;
    addFavourite("ALPHA");
    load();
    EXPECT_TRUE(messages().empty()) << "not while it opens";
    showFake("frmCONGroups");
    choose(1);
    EXPECT_TRUE(messages().empty()) << "no tick changes";
    choose(0);
    choose(0);
    EXPECT_EQ(messages(), Texts{"As you have activated the 3D view, Changes to your favourites won't take "
                                "effect until you restart vantrace."})
        << "also for the program's own ticks";
}

TEST_F(GroupsSettingsTest, TellsWhatIsKnownAboutASatellite) {
    load();
    select(1);
    EXPECT_EQ(form.Details, "Data for BRAVO\r\nBeacon: 145.8\r\nNotes: ");
    Details_Click(form, state, services);
    EXPECT_TRUE(fakes.desktop.opened.empty());
    select(0);
    EXPECT_EQ(form.Details,
              "You can still track the position of this Satellite, but No further Information is Available, "
              "To send a request for information to be added to the database for this object CLICK HERE. "
              "Information if found will be added within a week or so.");
}

TEST_F(GroupsSettingsTest, ClosingWritesBothFilesAndTellsOneThatTheDiskDoesNotTake) {
    load();
    addFavourite("ALPHA");
    state.Groups[2].Name = "Renamed";
    Form_Unload(form, state, services);
    EXPECT_EQ(fakes.folder.read("faves.dat"), "ALPHA\r\n");
    EXPECT_EQ(
        fakes.folder.read("groups.dat"),
        "Letters,example.org/a/letters.txt,0\r\nRenamed,others.txt,1\r\nMissing,example.org/gone.txt,0\r\n");
    const std::filesystem::path folder = fakes.folder.path();
    std::filesystem::remove(folder / "faves.dat");
    std::filesystem::remove(folder / "groups.dat");
    std::filesystem::create_directory(folder / "faves.dat");
    EXPECT_THROW(Form_Unload(form, state, services), FileError);
    EXPECT_TRUE(fakes.folder.read("groups.dat").starts_with("Letters,"));
    std::filesystem::remove(folder / "faves.dat");
    std::filesystem::remove(folder / "groups.dat");
    std::filesystem::create_directory(folder / "groups.dat");
    EXPECT_THROW(Form_Unload(form, state, services), FileError);
    EXPECT_EQ(fakes.folder.read("faves.dat"), "ALPHA\r\n");
}

TEST_F(GroupsSettingsTest, WhatAFileHeldIsNotReplacedByATableThatDidNotTakeIt) {
    std::string forty;
    for (int i = 1; i <= 40; ++i) forty += "G" + std::to_string(i) + ",letters.txt,1\r\n";
    fakes.folder.write("groups.dat", forty + "G41,letters.txt,1\r\n");
    EXPECT_THROW(LoadGroups(state), std::out_of_range);
    load();
    EXPECT_EQ(form.GroupList.list.size(), 40U);
    Form_Unload(form, state, services);
    EXPECT_EQ(fakes.folder.read("groups.dat"), forty);
    const std::string large(2 << 20, '\n');
    for (const auto& [file, read] :
         {std::pair<const char*, void (*)(ProgramState&)>{"groups.dat", LoadGroups},
          {"faves.dat", LoadFavourites}}) {
        fakes.folder.write(file, large);
        EXPECT_THROW(read(state), FileError);
        EXPECT_THROW(Form_Unload(form, state, services), FileError);
        EXPECT_EQ(fakes.folder.read(file).size(), large.size()) << file;
        std::filesystem::remove(fakes.folder.path() / file);
        Form_Unload(form, state, services);
        EXPECT_EQ(fakes.folder.read(file), file == std::string("groups.dat") ? forty : "")
            << "one that is gone";
    }
}

}  // namespace
}  // namespace vantrace
