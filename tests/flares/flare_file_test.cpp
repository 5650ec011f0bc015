#include "flares/flare_file.h"

#include "platform/file_error.h"
#include "tests/flares/flare_pages.h"
#include "tests/support/temporary_folder.h"

namespace vantrace {
namespace {

class FlareFileTest : public ::testing::Test {
  protected:
    FlareList load(std::string_view content) {
        folder.write("flares.dat", content);
        FlareList list;
        loadFlares(file(), list);
        return list;
    }
    std::filesystem::path file() const { return folder.path() / "flares.dat"; }

    TemporaryFolder folder;
    const FlareRow& row = wholeRow;
    const std::string& line = wholeLine;
};

TEST_F(FlareFileTest, WhatIsWrittenIsReadAgain) {
    const FlareRow part = flareRowOf({"6 Jan "});
    saveFlares(file(), {row, part, row});
    EXPECT_EQ(folder.read("flares.dat"), line + "6 Jan ;;;;;;;\r\n" + line);
    FlareList list;
    loadFlares(file(), list);
    EXPECT_EQ(list, (FlareList{row, part, row}));
    saveFlares(file(), {});
    EXPECT_TRUE(folder.exists("flares.dat"));
    EXPECT_EQ(folder.read("flares.dat"), "");
    EXPECT_EQ(folder.names(), Texts{"flares.dat"});
}

TEST_F(FlareFileTest, ARowOfEmptyFieldsEndsTheReading) {
    EXPECT_EQ(load(line + ";;;;;;;\r\n" + line), FlareList{row});
    // Neither of these is that line.
    EXPECT_EQ(load(";;;;;;\r\n; ;;;;;;\r\n;;;;;;;;\r\n").size(), 3U);
}

TEST_F(FlareFileTest, ShortLinesBeginAgainAndLongOnesAreCut) {
    EXPECT_EQ(load("a;b;c\r\n"), FlareList{flareRowOf({"a", "b", "c", "a", "b", "c", "a", "b"})});
    EXPECT_EQ(load("alone\n").at(0)[FlareColumn::Satellite], "alone");
    EXPECT_EQ(load("\r\n"), FlareList{FlareRow()});
    EXPECT_EQ(load("1;2;3;4;5;6;7;8;9;10"), FlareList{flareRowOf({"1", "2", "3", "4", "5", "6", "7", "8"})});
}

TEST_F(FlareFileTest, TooMuchIsNeitherWrittenNorRead) {
    folder.write("flares.dat", "old");
    EXPECT_THROW(saveFlares(file(), FlareList(mostFlares + 1, row)), FileError);
    EXPECT_THROW(saveFlares(file(), {flareRowOf({std::string(flareFileLimitBytes, 'x')})}), FileError);
    EXPECT_EQ(folder.read("flares.dat"), "old");
    saveFlares(file(), FlareList(mostFlares, row));

    std::string lines;
    for (std::size_t i = 0; i < mostFlares + 5; ++i) lines += line;
    folder.write("flares.dat", lines);
    FlareList list;
    EXPECT_THROW(loadFlares(file(), list), FileError);
    EXPECT_EQ(list, FlareList(mostFlares, row)) << "those before are taken";
    EXPECT_THROW(load(std::string(flareFileLimitBytes + 1, '\n')), FileError);
    EXPECT_THROW(load(std::string(flareFileLimitBytes, '\n')), FileError);
}

}  // namespace
}  // namespace vantrace
