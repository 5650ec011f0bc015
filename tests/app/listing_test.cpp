#include <sys/stat.h>

#include "tests/app/cli_run.h"
#include "tests/support/testing.h"

namespace vantrace {

namespace {

using ListTest = CliTest;
using CheckTest = CliTest;

TEST_F(ListTest, TellsNameFileAndEpoch) {
    const CliResult result = runCsv({"list"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out,
              "name,file,epoch_utc,catalog_number\n"
              "HYPERVIEW 1G (RS66S),amateur.tle,2026-08-06T05:56:55.1Z,61772\n"
              "GOES 19,geo.txt,2026-08-21T11:12:51.9Z,60133\n"
              "ISS (ZARYA),stations.txt,2026-08-21T12:47:44.7Z,25544\n");
}

TEST_F(ListTest, AGroupIsAFileItsStemOrANameOfTheGroupsFile) {
    folder.write("groups.dat",
                 "Space Stations,example.org/elements/stations.txt,0\r\nGone,example.org/gone.txt,0\r\n");
    for (const char* group : {"stations.txt", "stations", "Space Stations", "space stations"}) {
        EXPECT_EQ(csvColumn(runCsv({"list", group}), "name"), Texts{"ISS (ZARYA)"}) << group;
    }
    const CliResult gone = runCsv({"list", "Gone"});
    EXPECT_EQ(gone.status, 2);
    EXPECT_NE(gone.err.find("gone.txt"), std::string::npos) << gone.err;
    const CliResult unknown = runCsv({"list", "nothing"});
    EXPECT_EQ(unknown.status, 2);
    EXPECT_NE(unknown.err.find("\"nothing\""), std::string::npos) << unknown.err;
}

TEST_F(ListTest, NamesOfHostileFilesDontSteerTheTerminal) {
    std::string hostile(issElements);
    hostile.replace(0, 11,
                    "\xC2\x9B"
                    "2JISS\xE2\x80\xAE\xFF");
    folder.write("stations.txt", hostile);
    folder.write("\x1B[2J.txt", goesElements);
    const CliResult result = run({"list"});
    EXPECT_EQ(result.status, 0);
    EXPECT_NE(result.out.find("?2JISS??"), std::string::npos) << result.out;
    EXPECT_NE(result.out.find("?[2J.txt"), std::string::npos) << result.out;
    EXPECT_EQ(result.out.find_first_of("\x1B\x9B\xFF"), std::string::npos);
}

TEST_F(CheckTest, TellsTheSetsLeftOutAndTheOddOnesThatAreUsed) {
    std::string wrong(goesElements);
    wrong.replace(wrong.find("9993"), 4, "9994");
    std::string odd(issElements);
    // 25554 for 25544 in line 2, and its check digit.
    odd.replace(odd.find("2 25544"), 7, "2 25554");
    odd.replace(odd.find("581884"), 6, "581885");
    folder.write("mixed.txt", std::string(issElements) + wrong + odd);
    const CliResult result = runCsv({"check"});
    EXPECT_EQ(result.status, 0);
    std::vector<CsvRow> mixed;
    for (const CsvRow& row : csvRows(result.out)) {
        if (row.at(0) == "mixed.txt") mixed.push_back(row);
    }
    ASSERT_EQ(mixed.size(), 3U);
    EXPECT_EQ(mixed[0], (CsvRow{"mixed.txt", "2", "", "", "read", ""}));
    EXPECT_EQ(mixed[1].at(2), "5");
    EXPECT_EQ(mixed[1].at(3), "GOES 19");
    EXPECT_EQ(mixed[1].at(4), "left out");
    EXPECT_NE(mixed[1].at(5), "");
    EXPECT_EQ(mixed[2].at(3), "ISS (ZARYA)");
    EXPECT_EQ(mixed[2].at(4), "odd, used");
    EXPECT_NE(run({"check"}).out.find("1 left out, 1 odd and used"), std::string::npos);
}

TEST_F(CheckTest, AFileThatIsTooLargeAndOneOfNothingButBadSetsAreTold) {
    std::string wrong(goesElements);
    wrong.replace(wrong.find("9993"), 4, "9994");
    std::string bad;
    for (int i = 0; i < 3000; ++i) bad += wrong;
    folder.write("bad.txt", bad);
    std::string large;
    while (large.size() <= std::size_t{64} << 20) large += bad;
    folder.write("large.txt", large);
    const CliResult result = runCsv({"check"});
    EXPECT_EQ(result.status, 0);
    std::size_t badRows = 0;
    std::string unreadable;
    for (const CsvRow& row : csvRows(result.out)) {
        badRows += row.at(0) == "bad.txt" ? 1U : 0U;
        if (row.at(4) == "unreadable") unreadable += row.at(0);
        if (row.at(4) == "not listed") badRows += std::stoul(row.at(5)) - 1;
    }
    // A row for the file itself, and one, or one counted, for each set.
    EXPECT_EQ(badRows, 3001U);
    EXPECT_EQ(unreadable, "large.txt");
}

TEST_F(CheckTest, AFolderWithoutElementFilesIsNoError) {
    const TemporaryFolder empty;
    const CliResult result = runCsv({"check", "--data", empty.path().string()});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.lines().size(), 1U);
    EXPECT_EQ(run({"list", "--format=json", "--data", empty.path().string()}).out, "[]\n");
}

}  // namespace

}  // namespace vantrace
