#include "app/sightings.h"
#include "core/program_state.h"
#include "orbit/satcalc.h"
#include "tests/app/cli_run.h"

namespace vantrace {
namespace {

using PassesTest = CliTest;

TEST_F(PassesTest, CsvHasItsColumnsAndTheTimesOfHorizonAndCulminationToTheTenth) {
    const CliResult result = runCsv({"passes", "ISS (ZARYA)", "--from", "2026-08-21T20:00Z", "--days", "1"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.lines().at(0),
              "name,rise_utc,rise_azimuth_deg,culmination_utc,max_elevation_deg,culmination_azimuth_deg,"
              "set_utc,set_azimuth_deg,duration_s,sunlit,visible");
    ASSERT_GE(result.lines().size(), 5U);
    for (const char* column : {"rise_utc", "culmination_utc", "set_utc"}) {
        for (const std::string& time : csvColumn(result, column)) {
            EXPECT_EQ(time.size(), std::string("2026-08-21T20:00:00.0Z").size()) << time;
        }
    }
    const auto elevationAt = [&](const std::string& time) {
        return csvFigures(runCsv({"track", "ISS (ZARYA)", "--at", time}), "elevation_deg").at(0);
    };
    const Texts rises = csvColumn(result, "rise_utc");
    for (std::size_t i = 0; i < rises.size(); ++i) {
        // In a tenth of a second it moves by less than 0.01 degrees at the horizon.
        EXPECT_NEAR(elevationAt(rises[i]), 0.0, 0.01);
        EXPECT_NEAR(elevationAt(csvColumn(result, "set_utc")[i]), 0.0, 0.01);
        const double highest = csvFigures(result, "max_elevation_deg")[i];
        EXPECT_NEAR(elevationAt(csvColumn(result, "culmination_utc")[i]), highest, 0.01);
        EXPECT_GT(highest, 0.0);
    }
}

TEST_F(PassesTest, LeastElevationDropsLowPassesAndLeavesTheOthersAsTheyAre) {
    const CliResult all = runCsv({"passes", "ISS (ZARYA)", "--days", "3"});
    const CliResult high = runCsv({"passes", "ISS (ZARYA)", "--days", "3", "--min-elevation", "30"});
    std::string expected = all.lines().at(0) + "\n";
    const std::vector<double> highest = csvFigures(all, "max_elevation_deg");
    for (std::size_t i = 0; i < highest.size(); ++i) {
        if (highest[i] >= 30.0) expected += all.lines().at(i + 1) + "\n";
    }
    EXPECT_EQ(high.out, expected);
    EXPECT_LT(high.out.size(), all.out.size());
    EXPECT_GT(high.lines().size(), 1U);
}

TEST_F(PassesTest, WhatNeverSetsGivesOneRowWithTheEndsOfTheSpan) {
    const CliResult result =
        runCsv({"passes", "GOES 19", "--site", "40,-75,0", "--from", "2026-08-22", "--days", "2.5"});
    ASSERT_EQ(result.lines().size(), 2U);
    EXPECT_EQ(csvColumn(result, "rise_utc").at(0), "2026-08-22T00:00:00.0Z");
    EXPECT_EQ(csvColumn(result, "set_utc").at(0), "2026-08-24T12:00:00.0Z");
    EXPECT_EQ(csvColumn(result, "duration_s").at(0), "216000");
    EXPECT_EQ(runCsv({"passes", "GOES 19", "--site", "40,105,0"}).lines().size(), 1U);
}

TEST_F(PassesTest, APathThatEndsGivesItsPassesThenALineAndStatus1) {
    const CliResult result =
        runCsv({"passes", "HYPERVIEW 1G (RS66S)", "ISS (ZARYA)", "--from", "2026-08-22", "--days", "30"});
    EXPECT_EQ(result.status, 1);
    EXPECT_NE(result.err.find("HYPERVIEW 1G (RS66S) at 2026-0"), std::string::npos) << result.err;
    const Texts names = csvColumn(result, "name");
    EXPECT_EQ(names.front(), "HYPERVIEW 1G (RS66S)");
    EXPECT_EQ(names.back(), "ISS (ZARYA)");
}

TEST_F(PassesTest, VisibleIsSunlitAndTwilightAtTheRise) {
    const CliResult passes = runCsv({"passes", "ISS (ZARYA)", "--from", "2026-08-21", "--days", "10"});
    const Texts rises = csvColumn(passes, "rise_utc");
    int visible = 0;
    int dark = 0;
    for (std::size_t i = 0; i < rises.size(); ++i) {
        const double sun = csvFigures(runCsv({"track", "sun", "--at", rises[i]}), "elevation_deg").at(0);
        const bool isSunlit = csvColumn(passes, "sunlit")[i] == "1";
        EXPECT_EQ(csvColumn(passes, "visible")[i] == "1", isSunlit && sun >= -18.0 && sun <= -6.0)
            << rises[i];
        visible += csvColumn(passes, "visible")[i] == "1" ? 1 : 0;
        dark += isSunlit ? 0 : 1;
    }
    EXPECT_GT(visible, 0);
    EXPECT_GT(dark, 0);
    EXPECT_TRUE(isTwilight(-6.0));
    EXPECT_TRUE(isTwilight(-18.0));
    EXPECT_FALSE(isTwilight(-5.999));
    EXPECT_FALSE(isTwilight(-18.001));
}

TEST_F(PassesTest, LitAgreesWithThePositionRoutineOverAWholeOrbit) {
    ProgramState state;
    state.AppPath = folder.appPath();
    state.ObserverLatitude = 52.0;
    state.ObserverLongitude = 355.0;
    state.OrbitEngine = std::make_shared<OrbitEngine>(&fakes.clock);
    state.OrbitEngine->EngineSetKepPath(state.AppPath);
    state.PrimarySatName = "ISS (ZARYA)";
    int lit = 0;
    for (std::int16_t minute = 0; minute < 96; minute += 2) {
        Satcalc(state, fakes.services, "ISS (ZARYA)", 2026, 8, 21, 22, minute, 0, true);
        const Instant time = plusSeconds(*parseIsoText("2026-08-21T20:00:00Z"), minute * 60.0);
        EXPECT_EQ(isLit(state.OrbitEngine->track("ISS (ZARYA)", time), time), state.SatSunlit) << minute;
        lit += state.SatSunlit ? 1 : 0;
    }
    EXPECT_GT(lit, 0);
    EXPECT_LT(lit, 48);
}

}  // namespace
}  // namespace vantrace
