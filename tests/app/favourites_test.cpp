#include "tests/app/cli_run.h"

namespace vantrace {
namespace {

using FavouritesTest = CliTest;
using TodayTest = CliTest;

TEST_F(FavouritesTest, NextRiseAndSetAreThoseOfThePasses) {
    folder.write("faves.dat", "ISS (ZARYA)\r\nGOES 19\r\n");
    const CliResult passes = runCsv({"passes", "ISS (ZARYA)", "--days", "1"});
    const CliResult before = runCsv({"favourites"});
    EXPECT_EQ(before.status, 0);
    EXPECT_EQ(before.lines().at(0),
              "name,utc,azimuth_deg,elevation_deg,range_km,latitude_deg,longitude_deg,height_km,"
              "next_aos_utc,next_los_utc");
    EXPECT_EQ(csvColumn(before, "next_aos_utc").at(0), csvColumn(passes, "rise_utc").at(0));
    EXPECT_EQ(csvColumn(before, "next_los_utc").at(0), csvColumn(passes, "set_utc").at(0));
    // Of one that is up the set is that of this pass, and the rise the next one.
    const CliResult during = runCsv({"favourites", "--at", csvColumn(passes, "culmination_utc").at(0)});
    EXPECT_EQ(csvColumn(during, "next_los_utc").at(0), csvColumn(passes, "set_utc").at(0));
    EXPECT_EQ(csvColumn(during, "next_aos_utc").at(0), csvColumn(passes, "rise_utc").at(1));
    // Over Europe a satellite that stands over America never rises.
    EXPECT_EQ(csvColumn(during, "next_aos_utc").at(1), "");
    EXPECT_EQ(csvColumn(during, "next_los_utc").at(1), "");
}

TEST_F(FavouritesTest, UnknownOnesAreToldAndTheFileStaysAsItIs) {
    const std::string lines = "GONE SAT\r\n\r\nHYPERVIEW 1G (R\r\nZARYA\r\nISS (ZARYA)\r\n";
    folder.write("faves.dat", lines);
    const CliResult result = runCsv({"favourites"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(csvColumn(result, "name"), (Texts{"HYPERVIEW 1G (R", "ISS (ZARYA)"}));
    for (const char* name : {"\"GONE SAT\"", "\"ZARYA\""})
        EXPECT_NE(result.err.find(name), std::string::npos);
    EXPECT_EQ(folder.read("faves.dat"), lines);
    // It falls before it rises again.
    const CliResult last = runCsv({"favourites", "--at", "2026-08-27T00:00:00Z"});
    EXPECT_EQ(last.status, 1);
    EXPECT_NE(csvColumn(last, "height_km").at(0), "");
    EXPECT_NE(last.err.find("decayed"), std::string::npos) << last.err;
    std::filesystem::remove(folder.path() / "faves.dat");
    expectFailure(2, {"favourites", "--format=csv"}, {"faves.dat"});
}

TEST_F(TodayTest, ShowsSiteSkyAndPassesInTimeOrder) {
    folder.write("faves.dat", "ISS (ZARYA)\r\nHYPERVIEW 1G (R\r\nGOES 19\r\n");
    const CliResult result = run({"today", "--site", "40,-75,10"});
    EXPECT_EQ(result.status, 0) << result.err;
    for (const char* part :
         {"40.0000 N 75.0000 W, 10 m", "--site LAT,LON,HEIGHT_M", "3 satellites in 3 files",
          "2026-08-21 20:00:00 UTC, local 22:00:00 (UTC+02:00)", "GOES 19 is up all the time"}) {
        EXPECT_NE(result.out.find(part), std::string::npos) << part << "\n" << result.out;
    }
    const Texts lines = result.lines();
    for (const std::string& line : lines) EXPECT_LE(line.size(), 100U);
    const auto title =
        std::ranges::find_if(lines, [](const std::string& line) { return line.starts_with("PASSES"); });
    Texts rises;
    for (auto line = title + 4; line < lines.end() && !line->empty(); ++line) {
        const std::string rise = line->substr(line->find(':') - 9, 15);
        rises.push_back(rise.substr(0, 2) == "22" ? rise : "21 AUG" + rise.substr(6));
    }
    const CliResult iss = runCsv({"passes", "ISS (ZARYA)", "--days", "1", "--site", "40,-75,10"});
    EXPECT_GT(rises.size(), iss.lines().size() - 1);
    EXPECT_TRUE(std::ranges::is_sorted(rises)) << result.out;
    folder.write("faves.dat", "");
    expectFailure(2, {"today", "--format=csv"}, {});
    EXPECT_EQ(run({"today"}).status, 0);
}

}  // namespace
}  // namespace vantrace
