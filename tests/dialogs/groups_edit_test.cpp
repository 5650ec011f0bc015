#include "core/labels.h"
#include "tests/dialogs/groups_test.h"

namespace vantrace {
namespace {

class GroupsEditTest : public GroupsTest {
  protected:
    void fillTable() {
        for (int i = 4; i <= 40; ++i) state.Groups[i] = {"G" + std::to_string(i), "letters.txt", "1"};
        state.GroupCount = 40;
    }
    std::string group(int index) {
        const GroupRecord& record = state.Groups[index];
        return record.Name + "," + record.Url + "," + record.Flag;
    }
};

TEST_F(GroupsEditTest, AGroupOfTheServerIsAdded) {
    fakes.folder.write("hosts.dat", "elementHost=elements.example.org\n");
    load();
    BUTaddCelestrak_Click(form, state, services);
    EXPECT_EQ(messages(), Texts{"Select a group first, then click this button"});
    EXPECT_EQ(state.GroupCount, 3);
    form.COMCelestrak.select(22);
    BUTaddCelestrak_Click(form, state, services);
    EXPECT_EQ(state.GroupCount, 4);
    EXPECT_EQ(group(4), "Tracking and Data Relay,elements.example.org/NORAD/elements/tdrss.txt,0");
    EXPECT_EQ(form.GroupList.list.back(), "Tracking and Data Relay");
    EXPECT_EQ(form.GroupList.selected, 0);
}

TEST_F(GroupsEditTest, AGroupIsAddedByHandWithAnyAnswers) {
    load();
    fakes.dialogs.saysYes = true;
    type({std::nullopt, "My birds", "example.org/birds.txt"});
    BUTaddgroup_Click(form, state, services);
    EXPECT_EQ(group(4), "My birds,example.org/birds.txt,0");
    EXPECT_EQ(fakes.dialogs.titles, (Texts{"Update", "Display name", "Web Address of Keplerian Elements"}));
    EXPECT_EQ(messages().at(0), "Is this new group updated via the Internet?");
    EXPECT_EQ(messages().at(1), "Type a Display name for this group. This can be any name you would like.");
    EXPECT_EQ(messages().back(),
              "Type the Full Web site Address (not including 'http://') Eg. "
              "celestrak.org/NORAD/elements/amateur.txt");
    EXPECT_EQ(fakes.dialogs.proposals, (Texts{"New Group", ""}));

    fakes.dialogs.saysYes = false;
    type({std::nullopt, "Mine", "my.txt"});
    BUTaddgroup_Click(form, state, services);
    EXPECT_EQ(group(5), "Mine,my.txt,1");
    EXPECT_EQ(fakes.dialogs.titles.back(), "Manually updated Keps");
    EXPECT_EQ(messages().back(),
              "Type the name of the file containing the keps, this file must be in your Vantrace folder. Eg. "
              "'mykeps.txt'");
    type({});
    BUTaddgroup_Click(form, state, services);
    EXPECT_EQ(group(6), ",,1");
    EXPECT_EQ(state.GroupCount, 6) << "cancelled questions add a group all the same";
}

TEST_F(GroupsEditTest, AFortyFirstGroupIsListedCountedAndNotStored) {
    fillTable();
    load();
    form.COMCelestrak.select(0);
    BUTaddCelestrak_Click(form, state, services);
    EXPECT_EQ(form.GroupList.list.size(), 41U);
    EXPECT_EQ(state.GroupCount, 41);
    EXPECT_EQ(fakes.logged(labels::groupsCONBUTaddCelestrak), 1);
    choose(40);
    EXPECT_EQ(fakes.logged(labels::conGroupsGrouplistClick), 1);
    Form_Unload(form, state, services);
    EXPECT_EQ(state.GroupCount, 40) << "what the table doesn't hold counts no more";
    EXPECT_TRUE(fakes.folder.read("groups.dat").ends_with("G40,letters.txt,1\r\n")) << "no group is lost";

    form = {};
    load();
    form.GroupList.selected = 4;
    BUTdeletegroup_Click(form, state, services);
    EXPECT_EQ(state.GroupCount, 39);
    EXPECT_EQ(state.Groups[5].Name, "G6");
    EXPECT_EQ(state.Groups[39].Name, "G40");
}

TEST_F(GroupsEditTest, DeletingMovesTheLaterGroupsUp) {
    load();
    form.GroupList.selected = noEntry;
    BUTdeletegroup_Click(form, state, services);
    EXPECT_EQ(form.GroupList.list.size(), 3U) << "nothing is selected";
    EXPECT_EQ(state.GroupCount, 3);
    form.GroupList.selected = 0;
    BUTdeletegroup_Click(form, state, services);
    EXPECT_EQ(state.GroupCount, 2);
    EXPECT_EQ(group(1), "Others,others.txt,1");
    EXPECT_EQ(group(2), "Missing,example.org/gone.txt,0");
    EXPECT_EQ(form.GroupList.list, (Texts{"Others", "Missing"}));
    EXPECT_EQ(form.GroupList.selected, 0);
    EXPECT_EQ(satellites(), Texts{"DELTA"}) << "the first group is shown";
    EXPECT_TRUE(fakes.folder.exists("letters.txt"));
    for (int i = 0; i < 3; ++i) BUTdeletegroup_Click(form, state, services);
    EXPECT_EQ(state.GroupCount, 0);
    EXPECT_TRUE(form.GroupList.list.empty());
    EXPECT_TRUE(fakes.logLines().empty());
}

TEST_F(GroupsEditTest, TheChosenOneIsMadeThePrimaryOne) {
    load();
    BUTmakeprime_Click(form, state, services);
    EXPECT_TRUE(messages().empty()) << "nothing is chosen";
    struct Case {
        std::string before;
        int chosen;
        const char* after;
        const char* change;
    };
    // Of a name that stands twice the first is exchanged; one that is no favourite drives out the first.
    for (const Case& test :
         {Case{"ALPHA DELTA CHARLIE ECHO", 2, " CHARLIE DELTA ALPHA ECHO", "ALPHA to CHARLIE"},
          Case{"ALPHA CHARLIE DELTA CHARLIE", 2, " CHARLIE ALPHA DELTA CHARLIE", "ALPHA to CHARLIE"},
          Case{"DELTA ECHO", 1, " BRAVO ECHO", "DELTA to BRAVO"}}) {
        SCOPED_TRACE(test.before);
        for (const std::string& name : favourites()) SetFavourite(state, name, false);
        std::istringstream names(test.before);
        for (std::string name; names >> name;) addFavourite(name);
        select(test.chosen);
        for (const char* const time : {"once", "and again"}) {
            BUTmakeprime_Click(form, state, services);
            std::string after;
            for (const std::string& name : favourites()) after += " " + name;
            EXPECT_EQ(after, test.after) << time;
        }
        EXPECT_EQ(messages().at(0), std::string("Primary Favourite Satellite changed from ") + test.change);
        fakes.dialogs.messages.clear();
    }
    EXPECT_EQ(state.Favourites[0].Name, "DELTA");
}

TEST_F(GroupsEditTest, TheWebIsSearchedForTheSatellite) {
    fakes.folder.write("letters.txt", setOf("ISS (ZARYA) &+#", "26233.5"));
    load();
    BUTfindInfo_Click(form, state, services);
    EXPECT_TRUE(fakes.desktop.opened.empty());
    select(0);
    BUTfindInfo_Click(form, state, services);
    ASSERT_EQ(fakes.desktop.opened.size(), 1U);
    EXPECT_TRUE(fakes.desktop.opened[0].ends_with("/search?hl=en&q=ISS+(ZARYA)+%26%2B%23+satellite"));
}

TEST_F(GroupsEditTest, MoreIsAskedForWhereNothingIsKnown) {
    fakes.folder.write("hosts.dat", "maintainer=keeper@example.org\n");
    fakes.folder.write("letters.txt", setOf("ISS (ZARYA)", "26233.5"));
    load();
    select(0);
    Details_Click(form, state, services);
    ASSERT_EQ(messages().size(), 1U);
    EXPECT_EQ(
        messages()[0],
        "A Request will now be sent via your email program for information about this satellite. When "
        "information is found, it will be added to the Vantrace database file, and you can update that "
        "file from the 'Internet Updates' window, but you already have the keps, so you can go ahead and "
        "start tracking it now.");
    EXPECT_EQ(fakes.desktop.opened,
              Texts{"mailto:keeper@example.org?subject=Satellite%20Info%20Request%20for%20ISS_(ZARYA)"});
    choose(0);
    Details_Click(form, state, services);
    EXPECT_EQ(messages().size(), 1U) << "nothing is chosen";
}

}  // namespace
}  // namespace vantrace
