#include "tests/app/cli_run.h"

namespace vantrace {

namespace {

using FlaresTest = CliTest;

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

TEST_F(FlaresTest, WithoutAListThereIsAUserError) {
    const CliResult none = runCsv({"flares"});
    EXPECT_EQ(none.status, 2);
    EXPECT_EQ(none.out, "");
    EXPECT_NE(none.err.find("flares.dat"), std::string::npos) << none.err;
    folder.write("flares.dat", "");
    const CliResult empty = runCsv({"flares"});
    EXPECT_EQ(empty.status, 0);
    EXPECT_EQ(empty.lines().size(), 1U);
}

TEST_F(FlaresTest, OfAListThatIsTooLongTheGoodRowsAreWritten) {
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
