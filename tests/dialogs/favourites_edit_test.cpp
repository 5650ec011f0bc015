#include "dialogs/favourites_edit.h"

#include "tests/dialogs/dialogs_test.h"

namespace vantrace {
namespace {

class FavouritesEditTest : public DialogsTest {
  protected:
    void add(const std::string& name) { SetFavourite(state, name, true); }
    void remove(const std::string& name) { SetFavourite(state, name, false); }
    bool isFavourite(const std::string& name) { return IsFavourite(state, services, name); }
    Texts names(int count) const {
        Texts result;
        for (int i = 1; i <= count; ++i) result.push_back(state.Favourites[i].Name);
        return result;
    }
};

TEST_F(FavouritesEditTest, ANameComesBehindTheOthersAlsoASecondTime) {
    add("A");
    add("B");
    add("A");
    EXPECT_EQ(names(4), (Texts{"A", "B", "A", ""}));
    EXPECT_EQ(state.FavouriteCount, 3);
    remove(" A ");
    EXPECT_EQ(names(3), (Texts{"B", "A", ""})) << "the first of them";
    EXPECT_EQ(state.FavouriteCount, 2);
    EXPECT_TRUE(isFavourite("A"));
}

TEST_F(FavouritesEditTest, RemovingMovesTheNamesAlone) {
    for (const char* const name : {"A", "B ", "C"}) add(name);
    state.Favourites[2].Elevation = 5;
    remove("A");
    EXPECT_EQ(names(3), (Texts{"B", "C", ""}));
    EXPECT_EQ(state.Favourites[1].Elevation, 0);
    EXPECT_EQ(state.Favourites[2].Elevation, 5);
    remove("Z");
    EXPECT_EQ(state.FavouriteCount, 2);
    remove("B");
    remove("C");
    EXPECT_EQ(state.FavouriteCount, 0);
    EXPECT_EQ(names(1), Texts{""});
}

TEST_F(FavouritesEditTest, IsAskedToTheLetterUpToTheFirstBlank) {
    add("ISS");
    add("HST");
    EXPECT_TRUE(isFavourite("HST"));
    EXPECT_FALSE(isFavourite("hst"));
    EXPECT_FALSE(isFavourite("HST "));
    state.Favourites[1].Name = "  ";
    EXPECT_FALSE(isFavourite("HST")) << "behind a blank one";
    EXPECT_FALSE(isFavourite(""));
}

TEST_F(FavouritesEditTest, TheLastEntryTakesWhatFindsNoRoom) {
    for (int i = 1; i <= 499; ++i) add("S" + std::to_string(i));
    EXPECT_EQ(state.FavouriteCount, 499);
    add("X");
    EXPECT_EQ(state.Favourites[500].Name, "X");
    EXPECT_EQ(state.FavouriteCount, 500);
    EXPECT_TRUE(isFavourite("X"));
    add("Y");
    EXPECT_EQ(state.Favourites[500].Name, "Y");
    EXPECT_EQ(state.Favourites[499].Name, "S499");

    remove("Y");
    EXPECT_EQ(state.FavouriteCount, 500) << "entry 500 is not looked at";
    remove("S1");
    EXPECT_EQ(state.FavouriteCount, 498);
    EXPECT_EQ(state.Favourites[498].Name, "S499");
    EXPECT_EQ(state.Favourites[499].Name, "");
    EXPECT_EQ(state.Favourites[500].Name, "Y");
}

}  // namespace
}  // namespace vantrace
