// The lists that the user keeps (favourites, groups and places), and the notes on the satellites.
#include "catalogue/favourites.h"
#include "catalogue/groups.h"
#include "catalogue/locations.h"
#include "catalogue/satellite_database.h"
#include "orbit/engine_error.h"
#include "tests/catalogue/catalogue_test.h"

namespace vantrace {
namespace {

class FavouritesTest : public CatalogueTest {
  protected:
    void load(std::string_view content) {
        folder.write("faves.dat", content);
        LoadFavourites(state);
    }
    std::string file() const { return folder.read("faves.dat"); }
};

TEST_F(FavouritesTest, NamesThatNoElementFileHoldsLeaveTheFile) {
    state.Favourites[3].Name = "old";
    state.Favourites[500].Name = "old";
    load("ISS (ZARYA)\r\nMIR\r\n\r\n   \nFUNCUBE-1 (AO-7\n");
    EXPECT_EQ(state.FavouriteCount, 2);
    EXPECT_EQ(state.Favourites[1].Name, "ISS (ZARYA)");
    EXPECT_EQ(state.Favourites[2].Name, "FUNCUBE-1 (AO-7") << "part of a name is enough";
    EXPECT_EQ(state.Favourites[3].Name, "");
    EXPECT_EQ(state.Favourites[500].Name, "");
    EXPECT_EQ(file(), "ISS (ZARYA)\r\nFUNCUBE-1 (AO-7\r\n");
    // A line is looked for as it stands.
    load("FUNCUBE-1 \nISS (ZARYA) \n (AO-73)\n");
    EXPECT_EQ(state.FavouriteCount, 2);
    EXPECT_EQ(state.Favourites[1].Name, "FUNCUBE-1");
    EXPECT_EQ(state.Favourites[2].Name, "(AO-73)");
}

TEST_F(FavouritesTest, NamesOfSetsThatAreLeftOutStay) {
    std::string damaged(gpsElements);
    damaged.replace(damaged.find("9999\r"), 4, "9998");
    folder.write("damaged.txt", damaged);
    folder.write("marked.txt", "0 " + std::string(gpsElements.substr(gpsElements.find("GPS BIIR-8"))));
    state.OrbitEngine->EngineSetKepPath(state.AppPath);
    load("GPS BIIR-5  (PR\nMIR\n0 GPS BIIR-8  (\n");
    EXPECT_EQ(file(), "GPS BIIR-5  (PR\r\nGPS BIIR-8  (\r\n") << "the mark in front is no part of a name";
}

TEST_F(FavouritesTest, LookingAtTheLinesWritesNothing) {
    const std::string content = "ISS (ZARYA)\nMIR\n\n";
    folder.write("faves.dat", content);
    const FavouriteLines lines = readFavouriteLines(state);
    EXPECT_EQ(lines.qualifying, Texts{"ISS (ZARYA)"});
    EXPECT_EQ(lines.dropped, Texts{"MIR"});
    EXPECT_EQ(file(), content);
    EXPECT_EQ(state.FavouriteCount, 0);
}

TEST_F(FavouritesTest, SavingCutsNamesTo15CharactersAndStopsAt499) {
    for (int index = 1; index <= 500; ++index) {
        state.Favourites[index].Name = "SATELLITE NUMBER " + std::to_string(index);
    }
    state.Favourites[7].Name = "   ";
    SaveFavourites(state);
    EXPECT_EQ(state.FavouriteCount, 498);
    EXPECT_EQ(file().size(), 498U * 17U);
    EXPECT_TRUE(file().starts_with("SATELLITE NUMBE\r\n"));
}

TEST_F(FavouritesTest, The500thIsReadButNotSavedAndThe501stFails) {
    std::string content;
    for (int line = 1; line <= 500; ++line) content += "ISS\r\n";
    load(content);
    EXPECT_EQ(state.Favourites[500].Name, "ISS");
    EXPECT_EQ(state.FavouriteCount, 499);
    EXPECT_THROW(load(content + "ISS\r\n"), std::out_of_range);
    EXPECT_EQ(file(), content + "ISS\r\n") << "the file is not touched";
}

TEST_F(FavouritesTest, AnEmptyFileAsksNoEngine) {
    state.OrbitEngine.reset();
    load("");
    EXPECT_EQ(state.FavouriteCount, 0);
    EXPECT_THROW(load("ISS\r\n"), EngineError);
    EXPECT_EQ(file(), "ISS\r\n");
}

class GroupsTest : public CatalogueTest {
  protected:
    void load(std::string_view content) {
        folder.write("groups.dat", content);
        LoadGroups(state);
    }
    std::string saved() {
        SaveGroups(state);
        return folder.read("groups.dat");
    }
};

TEST_F(GroupsTest, AreReadFieldByField) {
    load("Weather, host/NORAD/elements/weather.txt ,0\r\nMine,mine.txt,by hand 1\n");
    EXPECT_EQ(state.GroupCount, 2);
    EXPECT_EQ(state.Groups[1].Name, "Weather");
    EXPECT_EQ(state.Groups[1].Url, "host/NORAD/elements/weather.txt");
    EXPECT_EQ(state.Groups[1].Flag, "0");
    EXPECT_EQ(state.Groups[2].Url, "mine.txt");
    EXPECT_EQ(state.Groups[2].Flag, "1") << "the last character, whatever the field holds";
    load("weather.txt\r\n");
    EXPECT_EQ(state.Groups[1].Name, "weather.txt");
    EXPECT_EQ(state.Groups[1].Url, "weather.txt") << "without commas the name is the address too";
    EXPECT_EQ(state.Groups[1].Flag, "t");
}

TEST_F(GroupsTest, ABlankLineEndsThemAndTheRestIsLost) {
    load("A,a.txt,0\r\n  \r\nB,b.txt,0\r\n");
    EXPECT_EQ(state.GroupCount, 1);
    EXPECT_EQ(saved(), "A,a.txt,0\r\n");
}

TEST_F(GroupsTest, NamesAreClearedUpToEntry20Only) {
    for (int index = 1; index <= 40; ++index) {
        state.Groups[index].Name = "old";
        state.Groups[index].Url = "old.txt";
    }
    load("A,a.txt,0\r\n");
    EXPECT_EQ(state.Groups[2].Name, "");
    EXPECT_EQ(state.Groups[2].Url, "old.txt");
    EXPECT_EQ(state.Groups[20].Name, "");
    EXPECT_EQ(state.Groups[21].Name, "old");
}

TEST_F(GroupsTest, TheTableHolds40) {
    std::string file;
    for (int line = 1; line <= 40; ++line) file += "G" + std::to_string(line) + ",host/g.txt,1\r\n";
    load(file);
    EXPECT_EQ(state.GroupCount, 40);
    EXPECT_EQ(state.Groups[40].Name, "G40");
    EXPECT_EQ(saved(), file);
    state.GroupCount = 0;
    EXPECT_THROW(load(file + "G41,g.txt,0\r\n"), std::out_of_range);
    EXPECT_EQ(state.GroupCount, 40);
}

TEST_F(GroupsTest, SavingLeavesOutBlankNamesAndNeverWritesHalfAFile) {
    load("A,a.txt,0\r\nB,b.txt,1\r\nC,c.txt,0\r\n");
    state.Groups[2].Name = "  ";
    const std::string file = saved();
    EXPECT_EQ(file, "A,a.txt,0\r\nC,c.txt,0\r\n");
    state.GroupCount = 41;
    EXPECT_THROW(SaveGroups(state), std::out_of_range);
    EXPECT_EQ(folder.read("groups.dat"), file);
}

class LocationsTest : public CatalogueTest {
  protected:
    Texts load(std::string_view content, char decimalMark = '.') {
        folder.write("locations.dat", content);
        MachineFormat format;
        format.decimalMark = decimalMark;
        return LoadLocations(state, format);
    }
    static std::string numberedPlaces(int count) {
        std::string file;
        for (int place = 1; place <= count; ++place) {
            file += "1P" + std::to_string(place) + ";10.5;-20.25;" + std::to_string(-place) + "\r\n";
        }
        return file;
    }
};

TEST_F(LocationsTest, HaveTheirSignInFrontAndLongitudeBeforeLatitude) {
    EXPECT_TRUE(load("1Jodrell Bank;2.307;53.236;77\r\n0Under the sea;350;-10;-30").empty());
    const LocationRecord& first = state.Locations[1];
    EXPECT_EQ(std::tie(first.Shown, first.Name, first.Longitude, first.Latitude),
              std::tuple("1", "Jodrell Bank", "2.307", "53.236"));
    EXPECT_EQ(first.Height, 77);
    EXPECT_EQ(state.Locations[2].Shown, "0");
    EXPECT_EQ(state.Locations[2].Height, -30);
}

TEST_F(LocationsTest, EntriesBehindTheLastAreClearedAndABlankLineEndsThem) {
    load(numberedPlaces(5));
    state.Locations[150].Name = "far end";
    load("1A;1;2;3\r\n\r\n1B;1;2;3\r\n");
    EXPECT_EQ(state.Locations[1].Name, "A");
    for (int index = 2; index <= 150; ++index) {
        EXPECT_EQ(state.Locations[index].Name, "") << index;
        EXPECT_EQ(state.Locations[index].Shown, "0") << index;
    }
}

TEST_F(LocationsTest, LinesWithoutAHeightOf16BitsAreSkippedAndGivenBack) {
    const Texts skipped =
        load("1A;1;2;high\r\n1B;1;2;40000\r\n1C;1;2;100\r\n1D;1;2\r\nx\r\n1E;1;2;\r\n1F;1;2;12.5\r\n");
    EXPECT_EQ(skipped, (Texts{"1A;1;2;high", "1B;1;2;40000", "1D;1;2", "x", "1E;1;2;"}));
    EXPECT_EQ(state.Locations[1].Name, "C");
    EXPECT_EQ(state.Locations[2].Name, "F");
    EXPECT_EQ(state.Locations[2].Height, 12) << "halves go to even";
    EXPECT_EQ(state.Locations[3].Name, "");
    EXPECT_EQ(load("1;10;20;5\r\n0  ;10;20;5\r\n1Rome;1;2;3\r\n"), (Texts{"1;10;20;5", "0  ;10;20;5"}));
    EXPECT_EQ(state.Locations[1].Name, "Rome") << "a line without a name hides none behind it";
}

TEST_F(LocationsTest, AFullTableIsWrittenWholeBeforeItFails) {
    const std::string full = numberedPlaces(150);
    EXPECT_EQ(load(numberedPlaces(152)).size(), 2U);
    EXPECT_EQ(state.Locations[150].Name, "P150");
    EXPECT_THROW(SaveLocations(state), std::out_of_range);
    EXPECT_EQ(folder.read("locations.dat"), full);
    load(numberedPlaces(149));
    EXPECT_NO_THROW(SaveLocations(state));
}

TEST_F(LocationsTest, SavingStopsAtAnEmptyNameAndLeavesOutBlankOnes) {
    load(numberedPlaces(4));
    state.Locations[1].Name = " ";
    state.Locations[3].Name = "";
    state.Locations[2].Shown = "";
    SaveLocations(state);
    EXPECT_EQ(folder.read("locations.dat"), "0P2;10.5;-20.25;-2\r\n");
}

TEST_F(LocationsTest, ACommaMachineKeepsItsCommas) {
    load("1A;10.5;-20.25;7\r\n", ',');
    EXPECT_EQ(state.Locations[1].Longitude, "10,5");
    EXPECT_EQ(state.Locations[1].Latitude, "-20,25");
    SaveLocations(state);
    EXPECT_EQ(folder.read("locations.dat"), "1A;10,5;-20,25;7\r\n");
    load(folder.read("locations.dat"), ',');
    EXPECT_EQ(state.Locations[1].Longitude, "10,5");
}

constexpr std::string_view database =
    "FUNCUBE-1 AO-73 39444\r\n"
    "NAME   FUNcube 1\r\n"
    "NOTES  replaced below\r\n"
    "OWNER  AMSAT-UK\r\n"
    "BEACON 145.935\r\n"
    "UPLINK 435.150 - 435.130\r\n"
    "DNLINK 145.950 - 145.970\r\n"
    "DNLINK\r\n"
    "NOTES  Transponder at night\r\n"
    "*** end\r\n"
    "***\r\n"
    "RS 15\n"
    "DNLINK 29.380\n";

class SatelliteDataTest : public CatalogueTest {
  protected:
    std::string ask(std::string_view name, std::string_view content = database) {
        folder.write("satellite.dat", content);
        return SatelliteDataFunc(state, services, name);
    }
};

TEST_F(SatelliteDataTest, TellsWhatTheRecordHolds) {
    EXPECT_EQ(ask("FUNCUBE-1"),
              "Data for FUNCUBE-1\r\n"
              "(FUNcube 1)\r\n"
              "Beacon: 145.935\r\n"
              "Uplink: 435.150 - 435.130\r\n"
              "Downlink: 145.950 - 145.970\r\n"
              "Downlink: \r\n"
              "Notes: Transponder at night");
}

TEST_F(SatelliteDataTest, HyphensAndBlanksAreOneAndTheNameIsTrimmedForTheSearchOnly) {
    EXPECT_EQ(ask(" RS-15 "), "Data for  RS-15 \r\nDownlink: 29.380\r\nNotes: ");
    EXPECT_TRUE(ask("FUNCUBE 1").starts_with("Data for FUNCUBE 1\r\n"));
    EXPECT_TRUE(ask("AO-73 39").starts_with("Data for AO-73 39\r\n(FUNcube 1)"));
}

TEST_F(SatelliteDataTest, OnlyFirstLinesOfRecordsAreSearchedAndABlankNameFindsTheFirst) {
    for (const char* name : {"AMSAT", "end", "funcube-1"}) EXPECT_EQ(ask(name), "") << name;
    EXPECT_TRUE(fakes.dialogs.messages.empty());
    EXPECT_TRUE(ask("  ").starts_with("Data for   \r\n(FUNcube 1)\r\n"));
    EXPECT_EQ(ask("", ""), "");
}

TEST_F(SatelliteDataTest, AMissingFileIsTold) {
    EXPECT_EQ(SatelliteDataFunc(state, services, "RS-15"), "");
    EXPECT_EQ(fakes.dialogs.messages, Texts{"Satellite.dat file is missing !!"});
}

}  // namespace
}  // namespace vantrace
