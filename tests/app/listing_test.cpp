#include <sys/stat.h>

#include "tests/app/cli_run.h"

namespace vantrace {
namespace {

using ListTest = CliTest;
using CheckTest = CliTest;
using ConvertTest = CliTest;
using FlaresTest = CliTest;

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
    expectFailure(2, {"list", "Gone"}, {"gone.txt"});
    expectFailure(2, {"list", "nothing"}, {"\"nothing\""});
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

constexpr std::string_view messages =
    "OBJECT_NAME,OBJECT_ID,EPOCH,MEAN_MOTION,ECCENTRICITY,INCLINATION,RA_OF_ASC_NODE,ARG_OF_PERICENTER,"
    "MEAN_ANOMALY,EPHEMERIS_TYPE,CLASSIFICATION_TYPE,NORAD_CAT_ID,ELEMENT_SET_NO,REV_AT_EPOCH,BSTAR,"
    "MEAN_MOTION_DOT,MEAN_MOTION_DDOT\n"
    "VANGUARD 1,1958-002B,2020-10-13T04:52:48.472320,10.84869164,.1845686,34.2443,225.5254,162.2516,205.2356,"
    "0,U,5,999,21814,-.22483E-4,-1.6E-7,0\n";
constexpr std::string_view vanguard =
    "VANGUARD 1              \r\n"
    "1 00005U 58002B   20287.20333880 -.00000016  00000+0 -22483-4 0  9997\r\n"
    "2 00005  34.2443 225.5254 1845686 162.2516 205.2356 10.84869164218149\r\n";

TEST_F(ConvertTest, PrintsSetsThatTheProgramReadsAndTellsThoseThatTheFormCannotHold) {
    folder.write("gp.csv", messages);
    const CliResult result = run({"convert", (folder.path() / "gp.csv").string()});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.out, vanguard);
    folder.write("gp.txt", result.out);
    EXPECT_EQ(csvColumn(runCsv({"list", "gp.txt"}), "catalog_number"), Texts{"5"});
    folder.write("gp.csv", std::string(messages) + "\x1B[2J,bad\n");
    const CliResult half = run({"convert", (folder.path() / "gp.csv").string()});
    EXPECT_EQ(half.status, 1);
    EXPECT_EQ(half.out, vanguard);
    EXPECT_EQ(half.err, "vantrace-cli: line 3 has not the columns of its heading\n");
}

TEST_F(ConvertTest, WhatHoldsNoMessagesIsTheUsersError) {
    folder.write("sets.txt", vanguard);
    for (const Texts& wrong : {Texts{"convert"},
                               {"convert", (folder.path() / "sets.txt").string()},
                               {"convert", (folder.path() / "missing.csv").string()},
                               {"convert", folder.path().string()},
                               {"convert", "--format=json", (folder.path() / "sets.txt").string()}}) {
        expectFailure(2, wrong, {});
    }
}

TEST_F(FlaresTest, ListsWhatTheTrackerStored) {
    folder.write("flares.dat",
                 "05 JAN;21:05:33;-3;34;254;12.3 km;-8;Iridium 23\r\n"
                 "06 JAN;04:00:01;1;10;7;,\x1b[2Jkm;-1;\"Iridium\" 9\r\n;;;;;;;\r\n07 JAN;;;;;;;\r\n");
    const CliResult csv = runCsv({"flares"});
    EXPECT_EQ(csv.status, 0) << csv.err;
    const std::vector<CsvRow> rows = csvRows(csv.out);
    ASSERT_EQ(rows.size(), 3U);
    EXPECT_EQ(rows[0], (CsvRow{"local_date", "local_time", "magnitude", "elevation_deg", "azimuth_deg",
                               "distance", "max_magnitude", "satellite"}));
    EXPECT_EQ(rows[1], (CsvRow{"05 JAN", "21:05:33", "-3", "34", "254", "12.3 km", "-8", "Iridium 23"}));
    EXPECT_EQ(rows[2][7], "\"Iridium\" 9");

    const CliResult table = run({"flares"});
    EXPECT_EQ(table.lines().size(), 4U) << table.out;
    EXPECT_NE(table.out.find("Iridium 23"), std::string::npos);
    EXPECT_EQ(table.out.find('\x1b'), std::string::npos) << "a page may hold what steers a terminal";
    const CliResult json = run({"flares", "--format", "json"});
    EXPECT_NE(json.out.find("\"satellite\":\"Iridium 23\""), std::string::npos) << json.out;
}

TEST_F(FlaresTest, WithoutAListThereIsAUserErrorAndOfOneThatIsTooLongTheGoodRowsAreWritten) {
    expectFailure(2, {"flares", "--format=csv"}, {"flares.dat"});
    folder.write("flares.dat", "");
    const CliResult empty = runCsv({"flares"});
    EXPECT_EQ(empty.status, 0);
    EXPECT_EQ(empty.lines().size(), 1U);
    std::string content;
    for (int row = 0; row < 32768; ++row) content += "a\n";
    folder.write("flares.dat", content);
    const CliResult result = runCsv({"flares"});
    EXPECT_EQ(result.status, 2);
    EXPECT_NE(result.err.find("more lines"), std::string::npos) << result.err;
    EXPECT_EQ(result.lines().size(), 32768U) << "and the heading";
}

}  // namespace
}  // namespace vantrace
