#include "catalogue/locations.h"

#include "platform/file_error.h"
#include "tests/catalogue/catalogue_test.h"
#include "tests/support/testing.h"

namespace vantrace {
namespace {

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
            file += "1P" + std::to_string(place) + ";10.5;-20.25;" + std::to_string(place) + "\r\n";
        }
        return file;
    }
};

TEST_F(LocationsTest, HaveTheirSignInFrontAndLongitudeBeforeLatitude) {
    EXPECT_TRUE(load("1Jodrell Bank;2.307;53.236;77\r\n0Under the sea;350;-10;-30").empty());
    const LocationRecord& first = state.Locations[1];
    EXPECT_EQ(first.Shown, "1");
    EXPECT_EQ(first.Name, "Jodrell Bank");
    EXPECT_EQ(first.Longitude, "2.307");
    EXPECT_EQ(first.Latitude, "53.236");
    EXPECT_EQ(first.Height, 77);
    EXPECT_EQ(state.Locations[2].Shown, "0");
    EXPECT_EQ(state.Locations[2].Height, -30);
}

TEST_F(LocationsTest, ReadAndWrittenAreTheSameFile) {
    const std::string file = "1Jodrell Bank;2.307;53.236;77\r\n0Under the sea;350;-10;-30\r\n";
    load(file);
    SaveLocations(state);
    EXPECT_EQ(folder.read("locations.dat"), file);
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
}

TEST_F(LocationsTest, ALineWithoutANameHidesNoneBehindIt) {
    EXPECT_EQ(load("1;10;20;5\r\n0  ;10;20;5\r\n1Rome;1;2;3\r\n"), (Texts{"1;10;20;5", "0  ;10;20;5"}));
    EXPECT_EQ(state.Locations[1].Name, "Rome");
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
    EXPECT_EQ(folder.read("locations.dat"), "0P2;10.5;-20.25;2\r\n");
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

}  // namespace
}  // namespace vantrace
