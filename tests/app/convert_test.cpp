#include "tests/app/cli_run.h"
#include "tests/support/testing.h"

namespace vantrace {

namespace {

using ConvertTest = CliTest;

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

TEST_F(ConvertTest, PrintsSetsThatTheProgramReads) {
    folder.write("gp.csv", messages);
    const CliResult result = run({"convert", (folder.path() / "gp.csv").string()});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.out, vanguard);
    folder.write("gp.txt", result.out);
    EXPECT_EQ(csvColumn(runCsv({"list", "gp.txt"}), "catalog_number"), Texts{"5"});
}

TEST_F(ConvertTest, ASetThatTheFormCannotHoldIsToldAndTheOthersComeOut) {
    folder.write("gp.csv", std::string(messages) + "\x1B[2J,bad\n");
    const CliResult result = run({"convert", (folder.path() / "gp.csv").string()});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.out, vanguard);
    EXPECT_EQ(result.err, "vantrace-cli: line 3 has not the columns of its heading\n");
}

TEST_F(ConvertTest, WhatHoldsNoMessagesIsTheUsersError) {
    folder.write("sets.txt", vanguard);
    for (const Texts& wrong : {Texts{"convert"},
                               {"convert", (folder.path() / "sets.txt").string()},
                               {"convert", (folder.path() / "missing.csv").string()},
                               {"convert", folder.path().string()},
                               {"convert", "--format=json", (folder.path() / "sets.txt").string()}}) {
        const CliResult result = run(wrong);
        EXPECT_EQ(result.status, 2) << wrong.back();
        EXPECT_EQ(result.out, "") << wrong.back();
        EXPECT_EQ(result.lines().size(), 0U);
        EXPECT_FALSE(result.err.empty());
    }
}

}  // namespace

}  // namespace vantrace
