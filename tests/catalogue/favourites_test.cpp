#include "catalogue/favourites.h"

#include "orbit/engine_error.h"
#include "orbit/orbit_engine.h"
#include "tests/catalogue/catalogue_test.h"
#include "tests/support/testing.h"

namespace vantrace {
namespace {

class FavouritesTest : public CatalogueTest {
  protected:
    FavouritesTest() {
        folder.write("stations.txt", stationElements);
        folder.write("amateur.txt", amateurElements);
        state.OrbitEngine = std::make_shared<OrbitEngine>();
        state.OrbitEngine->EngineSetKepPath(state.AppPath);
    }
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
}

TEST_F(FavouritesTest, TheLineIsLookedForAsItStands) {
    load("FUNCUBE-1 \nISS (ZARYA) \n (AO-73)\n");
    EXPECT_EQ(state.FavouriteCount, 2);
    EXPECT_EQ(state.Favourites[1].Name, "FUNCUBE-1");
    EXPECT_EQ(state.Favourites[2].Name, "(AO-73)");
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
    for (int line = 1; line <= 500; ++line) {
        content += "ISS\r\n";
    }
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

}  // namespace
}  // namespace vantrace
