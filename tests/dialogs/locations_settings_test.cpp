#include "dialogs/locations_settings.h"

#include "catalogue/locations.h"
#include "core/labels.h"
#include "platform/file_error.h"
#include "tests/dialogs/dialogs_test.h"

namespace vantrace {
namespace {

using Answers = std::deque<std::optional<std::string>>;

class LocationsSettingsTest : public DialogsTest {
  protected:
    LocationsSettingsTest() {
        state.Locations[1] = {"London", "51.51", "0.13", 15, "1"};
        state.Locations[2] = {"Tokyo ", "35.65", "220.26", 40, "0"};
        state.Locations[3] = {"Sydney", "-33.87", "208.78", 20, "1"};
    }
    void load() { Form_Load(form, state, services); }
    void add(const Answers& answers) {
        fakes.dialogs.messages.clear();
        fakes.dialogs.titles.clear();
        type(answers);
        BUTaddlocations_Click(form, state, services);
    }
    /// Messages, without the questions.
    Texts told() const {
        Texts result;
        for (std::size_t i = 0; i < messages().size(); ++i) {
            if (fakes.dialogs.titles[i].empty()) result.push_back(messages()[i]);
        }
        return result;
    }
    std::string place(int index) {
        const LocationRecord& place = state.Locations[index];
        return place.Name + "|" + place.Latitude + "|" + place.Longitude + "|" +
               std::to_string(place.Height) + "|" + place.Shown;
    }
    Texts shown() const {
        Texts result;
        for (const TickList::Entry& entry : form.ListLocations.list) {
            result.push_back((entry.isTicked ? "+" : "-") + entry.text);
        }
        return result;
    }

    LocationsForm form;
};

TEST_F(LocationsSettingsTest, ListsThePlacesUpToTheFirstBlankOne) {
    state.Locations[5] = {"Behind", "0", "0", 0, "1"};
    load();
    EXPECT_EQ(shown(), (Texts{"+London", "-Tokyo", "+Sydney"}));
    ListLocations_ItemCheck(form, state, services, 1, true);
    ListLocations_ItemCheck(form, state, services, 0, false);
    EXPECT_EQ(state.Locations[1].Shown + state.Locations[2].Shown, "01");
}

TEST_F(LocationsSettingsTest, APlaceIsAskedForAndDrawnButItsTickComesLater) {
    load();
    add({" Rome ", "41.9", "347.5", "37.5"});
    EXPECT_EQ(fakes.dialogs.titles,
              (Texts{"Add New Location", "Latitude (Positive is North, Negitive is South)",
                     "Longitude (degrees WEST only)", "Height above sea level for Rome"}));
    EXPECT_EQ(messages(),
              (Texts{"Type the Name of the location", "Type the Latitude of Rome\r\nMUST BE IN DECIMAL",
                     "Type the Longitude of Rome", "Type the Height above sea level (in Metres)"}));
    EXPECT_EQ(place(4), "Rome|41.9|347.5|38|1");
    EXPECT_EQ(shown().back(), "-Rome");
    LocationsForm next;
    Form_Load(next, state, services);
    EXPECT_TRUE(next.ListLocations.list.back().isTicked);
}

TEST_F(LocationsSettingsTest, AQuestionIsRepeatedUntilItsAnswerPasses) {
    load();
    add({"Rome, Italy", "Rome", "41 54", "north", "-12 30", "-1", "360", "37"});
    EXPECT_EQ(told(), (Texts{"Commas not allowed in location name",
                             "The Latitude MUST be in decimal format (not DEG MIN SEC)",
                             "The Longitude MUST be in decimal format (not DEG MIN SEC)",
                             "Must be a positive number only and in degrees WEST"}));
    EXPECT_EQ(place(4), "Rome|north|360|37|1") << "letters pass";
    add({"A;B", "Oslo", "9999", "0", "1"});
    EXPECT_EQ(told().size(), 1U) << "the file has no room for a semicolon";
    EXPECT_EQ(state.Locations[5].Latitude, "9999") << "a latitude isn't tested for its range";
    add({"Graz", "1", "1", "37 m"});
    add({"Wels", "1", "1", "high"});
    EXPECT_EQ(place(6), "Graz|1|1|37|1") << "the number that it starts with";
    EXPECT_EQ(place(7), "Wels|1|1|0|1");
    EXPECT_TRUE(fakes.logLines().empty());
}

TEST_F(LocationsSettingsTest, WithoutAnAnswerNothingIsAdded) {
    load();
    for (const Answers& answers : {Answers{}, Answers{"Rome", ""}, Answers{"Rome", "1", std::nullopt},
                                   Answers{"Rome", "1", "1", ""}}) {
        add(answers);
        EXPECT_TRUE(told().empty());
    }
    add({"  ", "1", "1", "1"});
    EXPECT_EQ(told(), Texts{"One or more entries were blank !"});
    add({"Rome", "1", "1", "40000"});
    EXPECT_EQ(fakes.logged(labels::locCONBUTaddloc), 1) << "no height of 16 bits";
    EXPECT_EQ(state.Locations[4].Name, "");
    EXPECT_EQ(shown().size(), 3U);
}

TEST_F(LocationsSettingsTest, ADeletedPlaceLeavesItsFlagBehind) {
    load();
    form.ListLocations.selected = 1;
    BUTremovelocations_Click(form, state, services);
    EXPECT_EQ(shown(), (Texts{"+London", "+Sydney"})) << "on the screen the ticks go along";
    EXPECT_EQ(place(2), "Sydney|-33.87|208.78|20|0") << "the flag of the deleted one";
    EXPECT_EQ(state.Locations[3].Name + state.Locations[3].Shown, "1");
    BUTremovelocations_Click(form, state, services);
    EXPECT_EQ(form.ListLocations.list.size(), 2U) << "nothing is selected";
    Form_Unload(form, state, services);
    EXPECT_EQ(fakes.folder.read("locations.dat"), "1London;0.13;51.51;15\r\n0Sydney;208.78;-33.87;20\r\n");
}

TEST_F(LocationsSettingsTest, AFullTableTakesNoMoreAndIsSavedWhole) {
    for (int i = 1; i <= 150; ++i) state.Locations[i] = {"P" + std::to_string(i), "1", "2", 3, "1"};
    load();
    EXPECT_EQ(shown().size(), 150U);
    add({"Rome", "1", "1", "1"});
    EXPECT_EQ(fakes.logged(labels::locCONBUTaddloc), 1);
    EXPECT_EQ(shown().size(), 150U);
    Form_Unload(form, state, services);
    EXPECT_TRUE(fakes.folder.read("locations.dat").ends_with("1P150;2;1;3\r\n"));
    form.ListLocations.selected = 0;
    BUTremovelocations_Click(form, state, services);
    EXPECT_EQ(state.Locations[149].Name, "P150");
    EXPECT_EQ(state.Locations[150].Name, "");
    form.ListLocations.add("P");
    form.ListLocations.add("P");
    form.ListLocations.add("P");
    ListLocations_ItemCheck(form, state, services, 151, true);
    ListLocations_ItemCheck(form, state, services, 149, true);
    EXPECT_EQ(state.Locations[150].Shown, "1") << "a tick beyond the table is ignored";
    EXPECT_TRUE(form.ListLocations.list[151].isTicked);
}

TEST_F(LocationsSettingsTest, AFileThatCouldNotBeReadStays) {
    const std::string large(2 << 20, '\n');
    fakes.folder.write("locations.dat", large);
    EXPECT_THROW(LoadLocations(state, services.format), FileError);
    load();
    EXPECT_THROW(Form_Unload(form, state, services), FileError);
    EXPECT_EQ(fakes.folder.read("locations.dat").size(), large.size());
}

}  // namespace
}  // namespace vantrace
