#include "core/shell/tabular.h"

#include "core/shell/start_up.h"
#include "tests/core/shell/shell_test.h"

namespace vantrace {
namespace {

class TabularTest : public ShellTest {
  protected:
    TabularTest() {
        writeSite();
        fakes.settings.set("Speechpack", "1");
        folder.write("faves.dat", "ISS (ZARYA)\r\nCSS (TIANHE)\r\n");
        Form_Load(main, state, services);
        fakes.speech.texts.clear();
        state.MainTag = "tabular";
        Form_Load(table, state, services);
    }

    /// Runs ticks of a second apart a minute until the first satellite is up; false where it doesn't rise.
    bool runUntilTheFirstIsUp() {
        for (int minute = 0; minute < 24 * 60; ++minute) {
            MainLoop(table, state, services);
            if (table.TabList[0].colour == inRangeColour) return true;
            fakes.clock.advanceSeconds(60);
        }
        return false;
    }

    MainForm& main = form;
    TabularForm table;
};

TEST_F(TabularTest, ShowsEachNameOnceInTheFormatsOfItsColumns) {
    state.Favourites[3].Name = " ISS (ZARYA)";
    state.FavouriteCount = 3;
    RefreshTable(table, state);
    EXPECT_EQ(table.TabList.size(), 3u) << "the blank in front makes another name, shown without it";
    state.Favourites[3].Name = "ISS (ZARYA)";
    RefreshTable(table, state);
    ASSERT_EQ(table.TabList.size(), 2u);
    MainLoop(table, state, services);
    const TableRow& row = table.TabList[0];
    EXPECT_EQ(row.columns[0], "ISS (ZARYA)");
    for (std::size_t column = 1; column <= 6; ++column) {
        const std::string& text = row.columns[column];
        ASSERT_GE(text.size(), 4u) << column;
        EXPECT_EQ(text[text.size() - 3], '.') << text;
    }
    EXPECT_TRUE(row.columns[7] == "Accending" || row.columns[7] == "Decending");
    EXPECT_EQ((Texts{table.Slocation, table.Slat, table.Slong, table.Sheight, table.Slocaltime, table.Sgmt}),
              (Texts{"Vienna", "48.21", "343.63", "170 mtrs ", "11:30:00", "10:30:00"}));
    EXPECT_TRUE(table.Sstatus.ends_with(" out of 2 Satellites in range"));
}

TEST_F(TabularTest, ARiseIsAnnouncedOnceAndNotAtTheOpening) {
    ASSERT_TRUE(runUntilTheFirstIsUp());
    const std::string expected = "The International Space station is now in range at heading ";
    ASSERT_FALSE(fakes.speech.texts.empty());
    EXPECT_TRUE(fakes.speech.texts.back().starts_with(expected)) << fakes.speech.texts.back();
    EXPECT_TRUE(fakes.speech.texts.back().ends_with("degrees."));
    EXPECT_EQ(fakes.speech.texts.back().find('.'), fakes.speech.texts.back().size() - 1) << "whole degrees";

    const std::size_t spoken = fakes.speech.texts.size();
    fakes.clock.advanceSeconds(1);
    MainLoop(table, state, services);
    EXPECT_EQ(fakes.speech.texts.size(), spoken);

    RefreshTable(table, state);
    MainLoop(table, state, services);
    EXPECT_EQ(fakes.speech.texts.size(), spoken) << "up already when the rows were made";
    EXPECT_EQ(table.TabList[0].colour, inRangeColour);
}

TEST_F(TabularTest, AtTheVeryHorizonItIsInRangeStaysWhiteAndIsAnnouncedAgain) {
    // A name that no element file holds leaves the last result as it stands.
    state.Favourites[1].Name = "NOBODY-1";
    state.FavouriteCount = 1;
    RefreshTable(table, state);
    state.SatElevation = 0;
    state.SatAzimuth = 359.9;
    for (int second = 0; second < 3; ++second) MainLoop(table, state, services);
    EXPECT_EQ(table.TabList[0].colour, outOfRangeColour);
    EXPECT_EQ(table.Sstatus, "1 out of 1 Satellites in range");
    EXPECT_EQ(fakes.speech.texts, Texts(2, "NOBODY 1 is now in range at heading 359degrees."))
        << "not at the first look, then each second";
}

TEST_F(TabularTest, ARowWhoseFavouriteIsGoneKeepsItsValues) {
    MainLoop(table, state, services);
    const TableRow before = table.TabList[0];
    state.Favourites[1] = state.Favourites[2];
    state.FavouriteCount = 1;
    fakes.clock.advanceSeconds(600);
    MainLoop(table, state, services);
    EXPECT_EQ(table.TabList[0], before);
    EXPECT_NE(table.Slocaltime, "11:30:00");
    EXPECT_TRUE(table.Sstatus.ends_with(" out of 2 Satellites in range"));
}

TEST_F(TabularTest, TheWordMenuStopsEverythingAndWithoutFavouritesNothingIsOutOfNothing) {
    MainLoop(table, state, services);
    const std::string status = table.Sstatus;
    state.MainTag = "menu";
    table.Sstatus = "untouched";
    MainLoop(table, state, services);
    EXPECT_EQ(table.Sstatus, "untouched");
    RefreshTable(table, state);
    EXPECT_EQ(table.TabList.size(), 2u);
    TabularForm idle;
    Form_Load(idle, state, services);
    EXPECT_FALSE(idle.Timer1.isEnabled);
    state.MainTag = "tabular";
    state.FavouriteCount = 0;
    RefreshTable(table, state);
    MainLoop(table, state, services);
    EXPECT_EQ(table.Sstatus, "0 out of 0 Satellites in range");
}

}  // namespace
}  // namespace vantrace
