#include "tests/app/cli_run.h"

namespace vantrace {
namespace {

using TrackTest = CliTest;
using StateTest = CliTest;

std::size_t significantDigits(const std::string& figure) {
    const std::size_t first = figure.find_first_of("123456789");
    std::size_t count = 0;
    for (std::size_t i = std::min(first, figure.size()); i < figure.size(); ++i) {
        if (figure[i] >= '0' && figure[i] <= '9') ++count;
    }
    return count;
}

TEST_F(TrackTest, CsvHasItsColumnsAndFullPrecisionAndATableFitsATerminal) {
    const CliResult result = runCsv({"track", "ISS (ZARYA)", "--at", "2026-08-21T20:00:00.25Z"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.lines().at(0),
              "name,utc,azimuth_deg,elevation_deg,range_km,range_rate_km_s,latitude_deg,longitude_deg,"
              "height_km,descending,phase_angle_rad,orbit_number,orbit_count");
    const CsvRow row = csvRows(result.out).at(1);
    EXPECT_EQ(row.at(0), "ISS (ZARYA)");
    EXPECT_EQ(row.at(1), "2026-08-21T20:00:00.25Z");
    for (const std::size_t figure : {2U, 3U, 4U, 5U, 6U, 7U, 8U, 12U})
        EXPECT_GE(significantDigits(row.at(figure)), 9U);
    EXPECT_TRUE(row.at(9) == "0" || row.at(9) == "1");
    EXPECT_EQ(row.at(10), "0");
    EXPECT_EQ(row.at(11), row.at(12).substr(0, row.at(12).find('.')));
    const Texts table = run({"track", "ISS (ZARYA)", "--at", "2026-08-21T20:00:00Z"}).lines();
    ASSERT_EQ(table.size(), 3U);
    for (const std::string& line : table) EXPECT_LE(line.size(), 100U);
    EXPECT_NE(table[2].find("2026-08-21 20:00:00 "), std::string::npos) << table[2];
}

TEST_F(TrackTest, LongitudesAreEastPositive) {
    // In the UTC morning the sun stands over the east, in the evening over the west.
    const CliResult result =
        runCsv({"track", "sun", "--at", "2026-08-21T06:00Z", "--every=43200", "--count=2"});
    const std::vector<double> longitudes = csvFigures(result, "longitude_deg");
    ASSERT_EQ(longitudes.size(), 2U);
    EXPECT_NEAR(longitudes[0], 90.0, 2.0);
    EXPECT_NEAR(longitudes[1], -90.0, 2.0);
    // At 30 degrees east it is noon at ten o'clock, and the sun stands in the south.
    const CliResult noon = runCsv({"track", "sun", "--at", "2026-08-21T10:03Z", "--site", "50,30,0"});
    EXPECT_NEAR(csvFigures(noon, "azimuth_deg").at(0), 180.0, 1.0);
}

TEST_F(TrackTest, RowsOfANameFollowEachOtherInTime) {
    const CliResult result = runCsv(
        {"track", "moon", "GOES 19", "--at", "2026-08-21T23:59:59.5Z", "--every", "0.5", "--count", "2"});
    EXPECT_EQ(csvColumn(result, "name"), (Texts{"moon", "moon", "GOES 19", "GOES 19"}));
    EXPECT_EQ(csvColumn(result, "utc").at(1), "2026-08-22T00:00:00Z");
    fakes.clock.setMicroseconds(120003);
    EXPECT_EQ(csvColumn(runCsv({"track", "sun"}), "utc").at(0), "2026-08-21T20:00:00.120003Z") << "now";
}

TEST_F(TrackTest, ADecayedSatelliteGivesAnEmptyRowALineAndStatus1) {
    const CliResult result = runCsv({"track", "HYPERVIEW 1G (RS66S)", "sun", "--at", "2026-09-30T00:00:00Z"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.lines().at(1), "HYPERVIEW 1G (RS66S),2026-09-30T00:00:00Z,,,,,,,,,,,");
    EXPECT_FALSE(csvColumn(result, "azimuth_deg").at(1).empty());
    for (const char* part : {"HYPERVIEW 1G (RS66S)", "2026-09-30T00:00:00", "decayed"}) {
        EXPECT_NE(result.err.find(part), std::string::npos) << result.err;
    }
    const CliResult json =
        run({"track", "HYPERVIEW 1G (RS66S)", "--at", "2026-09-30T00:00:00Z", "--format", "json"});
    EXPECT_NE(json.out.find("\"azimuth_deg\":null,"), std::string::npos) << json.out;
    const CliResult state = runCsv({"state", "HYPERVIEW 1G (RS66S)", "--minutes", "0,100000"});
    EXPECT_EQ(state.status, 1);
    EXPECT_EQ(state.lines().at(2), "HYPERVIEW 1G (RS66S),100000,,,,,,");
    EXPECT_NE(state.err.find("HYPERVIEW 1G (RS66S) at 2026-10-1"), std::string::npos) << state.err;
}

TEST_F(StateTest, HasTheStateAtMinutesFromTheEpoch) {
    for (const Texts& minutes : {Texts{"--minutes", "-1440,0,0.5"}, {"--minutes=-1440,0,0.5"}}) {
        Texts arguments{"state", "ISS (ZARYA)"};
        arguments.insert(arguments.end(), minutes.begin(), minutes.end());
        const CliResult result = runCsv(arguments);
        ASSERT_EQ(result.status, 0) << result.err;
        EXPECT_EQ(result.lines().at(0), "name,minutes,x_km,y_km,z_km,vx_km_s,vy_km_s,vz_km_s");
        EXPECT_EQ(csvColumn(result, "minutes"), (Texts{"-1440", "0", "0.5"}));
        // The epoch of a published set is an ascending node: the place lies in the equator's plane.
        EXPECT_NEAR(csvFigures(result, "z_km").at(1), 0.0, 1.0);
        EXPECT_GT(csvFigures(result, "vz_km_s").at(1), 5.0);
        EXPECT_GE(significantDigits(csvColumn(result, "x_km").at(0)), 12U);
        const double moved = csvFigures(result, "z_km").at(2) - csvFigures(result, "z_km").at(1);
        EXPECT_NEAR(moved, 30.0 * csvFigures(result, "vz_km_s").at(1), 0.2);
    }
}

}  // namespace
}  // namespace vantrace
