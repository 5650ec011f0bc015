#include "passes/pass_prediction.h"

#include "platform/file_error.h"
#include "tests/passes/passes_test.h"

namespace vantrace {
namespace {

class PassPredictionTest : public PassesTest {
  protected:
    void choose(const std::string& group) {
        form.Groupname.text = group;
        Groupname_Click(form, state, services);
    }
};

TEST_F(PassPredictionTest, OpensOnTodayWithGroupsFavouritesAndJobs) {
    fakes.clock.setUtc({2026, 8, 21, 23, 0, 0}, 120);
    fakes.folder.write("pass.dat", "A\nX;\n1\n0\n0\n");
    Form_Load(form, state, services);
    EXPECT_EQ(form.Calendar, (CalendarDate{22, 8, 2026}));
    EXPECT_EQ(form.Groupname.list, (Texts{"Space Stations", "Geostationary", "Missing"}));
    EXPECT_EQ(form.FavouriteName.list, Texts{"ISS (ZARYA)"});
    EXPECT_EQ(form.ListPresets.list, Texts{"A"});
    EXPECT_TRUE(form.skin.isApplied);
    EXPECT_EQ(form.Groupname.text, "Select Satellite Group");
    EXPECT_EQ(form.SatelliteName.text, "Select Satellite");
    EXPECT_EQ(form.FavouriteName.text, "Select Favourite");
}

TEST_F(PassPredictionTest, BehindTheMenuItTakesItsSkinAndNoMore) {
    state.MainTag = "menu";
    fakes.folder.write("pass.dat", "A\nX;\n1\n0\n0\n");
    Form_Load(form, state, services);
    EXPECT_TRUE(form.skin.isApplied);
    EXPECT_TRUE(form.Groupname.list.empty() && form.FavouriteName.list.empty() &&
                form.ListPresets.list.empty());
    EXPECT_EQ(form.Calendar, CalendarDate());
}

TEST_F(PassPredictionTest, AFileOfJobsThatCannotBeReadCostsItselfAlone) {
    std::filesystem::create_directory(fakes.folder.path() / "pass.dat");
    EXPECT_THROW(Form_Load(form, state, services), FileError);
    EXPECT_EQ(form.FavouriteName.list.size(), 1U);
    EXPECT_EQ(form.Groupname.list.size(), 3U);
}

TEST_F(PassPredictionTest, AGroupBringsItsSatellitesOneByOne) {
    choose("Space Stations");
    EXPECT_EQ(form.SatelliteName.list, (Texts{"ISS (ZARYA)", "FUNCUBE-1 (AO-73)"}));
    EXPECT_EQ(fakes.events.yields, 2);
    EXPECT_EQ(form.SatelliteName.text, "Select Satellite");
    form.SatelliteName.text = "ISS (ZARYA)";
    choose("Geostationary");
    EXPECT_EQ(form.SatelliteName.list, Texts{"INTELSAT 10-02"});
    EXPECT_EQ(form.SatelliteName.text, "Select Satellite") << "no satellite of another group stays";
    choose("Missing");
    EXPECT_EQ(
        messages(),
        Texts{"missing.txt satellite group keps are not updated yet, the keplerian file doesn't exist"});
    EXPECT_TRUE(form.SatelliteName.list.empty());
}

TEST_F(PassPredictionTest, LinesGoByThreesFromTheVeryFirst) {
    fakes.folder.write("geo.txt", " A \n1\n2\n\nB\nC\nD\n1\n");
    choose("Geostationary");
    EXPECT_EQ(form.SatelliteName.list, (Texts{"A", ""})) << "whatever they hold; the rest is no satellite";
    fakes.folder.write("geo.txt", "");
    choose("Geostationary");
    EXPECT_TRUE(form.SatelliteName.list.empty());
}

TEST_F(PassPredictionTest, AChoiceInTheMiddleOfAnotherEndsIt) {
    fakes.events.onYield = [&] {
        fakes.events.onYield = {};
        choose("Geostationary");
    };
    choose("Space Stations");
    EXPECT_EQ(form.SatelliteName.list, Texts{"INTELSAT 10-02"});
    showFake("Main");
    fakes.events.onYield = [&] { Form_Unload(form, services); };
    fakes.events.yields = 0;
    choose("Space Stations");
    EXPECT_EQ(fakes.events.yields, 1) << "it ends with the window";
}

TEST_F(PassPredictionTest, WithoutASelectionTheButtonTellsHowManyThereAre) {
    BUTcalc_Click(form, state, services);
    EXPECT_EQ(messages(), Texts{"You must select either one of the 3 Satellites in the database, or one of "
                                "your favourites"});
    form.FavouriteName.text = "ISS (ZARYA)";
    form.Calendar = {22, 8, 2026};
    BUTcalc_Click(form, state, services);
    EXPECT_FALSE(rows().empty());
    const std::size_t once = rows().size();
    BUTcalc_Click(form, state, services);
    EXPECT_EQ(messages().size(), 2U) << "each calculation needs a new selection";
    EXPECT_EQ(rows().size(), once);
}

TEST_F(PassPredictionTest, ASelectedGroupWinsOverAFavourite) {
    form.Calendar = {22, 8, 2026};
    form.Groupname.text = "Space Stations";
    form.SatelliteName.text = "FUNCUBE-1 (AO-73)";
    form.FavouriteName.text = "ISS (ZARYA)";
    BUTcalc_Click(form, state, services);
    ASSERT_FALSE(rows().empty());
    EXPECT_EQ(rows()[0].texts[0], "FUNCUBE-1 (AO-73)");
    form.Groupname.text = "Space Stations";
    form.SatelliteName.text = "Select a Satellite";
    EXPECT_ANY_THROW(BUTcalc_Click(form, state, services)) << "its text goes to the engine as a name";
}

}  // namespace
}  // namespace vantrace
