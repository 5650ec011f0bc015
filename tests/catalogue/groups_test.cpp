#include "catalogue/groups.h"

#include "platform/file_error.h"
#include "tests/catalogue/catalogue_test.h"
#include "tests/support/testing.h"

namespace vantrace {
namespace {

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
}

TEST_F(GroupsTest, ReadAndWrittenAreTheSameFile) {
    const std::string file = "Weather,host/weather.txt,0\r\nMine,mine.txt,1\r\n";
    load(file);
    EXPECT_EQ(saved(), file);
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
    for (int line = 1; line <= 40; ++line) {
        file += "G" + std::to_string(line) + ",g.txt,0\r\n";
    }
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

TEST_F(GroupsTest, WithoutCommasTheNameIsTheAddressToo) {
    load("weather.txt\r\n");
    EXPECT_EQ(state.Groups[1].Name, "weather.txt");
    EXPECT_EQ(state.Groups[1].Url, "weather.txt");
    EXPECT_EQ(state.Groups[1].Flag, "t");
}

}  // namespace
}  // namespace vantrace
