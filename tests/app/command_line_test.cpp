
#include "tests/app/cli_run.h"
#include "tests/support/testing.h"

namespace vantrace {

namespace {

using CommandLineTest = CliTest;

const Texts& commandNames() {
    static const Texts names{"track", "state", "passes", "list", "check", "favourites", "today"};
    return names;
}

TEST_F(CommandLineTest, EveryCommandHasHelpAndVersion) {
    const CliResult help = runBare({"--help"});
    EXPECT_EQ(help.status, 0);
    const std::string version = runBare({"--version"}).out;
    EXPECT_TRUE(version.starts_with("vantrace-cli "));
    for (const std::string& command : commandNames()) {
        EXPECT_NE(help.out.find("\n  " + command + " "), std::string::npos);
        const CliResult own = runBare({command, "--nonsense", "--help"});
        EXPECT_EQ(own.status, 0);
        EXPECT_TRUE(own.out.starts_with("Usage: vantrace-cli " + command + " [OPTIONS]")) << own.out;
        for (const char* option : {"--data DIR", "--site LAT,LON,HEIGHT_M", "--format FORMAT"}) {
            EXPECT_NE(own.out.find(option), std::string::npos);
        }
        for (const std::string& line : own.lines()) EXPECT_LE(line.size(), 100U) << line;
        EXPECT_EQ(runBare({command, "--version"}).out, version);
    }
}

TEST_F(CommandLineTest, AUsersErrorIsOneLineAndStatus2) {
    const std::vector<std::vector<std::string>> wrong{
        {},
        {"trak"},
        {"track"},
        {"track", "sun", "--nonsense"},
        {"track", "sun", "--at"},
        {"track", "sun", "--at", "noon"},
        {"track", "sun", "--at", "2026-13-01"},
        {"track", "sun", "--every", "1"},
        {"track", "sun", "--every", "-1", "--count", "2"},
        {"track", "sun", "--every", "1", "--count", "2.5"},
        {"track", "sun", "--format", "xml"},
        {"track", "sun", "--site", "1,2"},
        {"track", "no such satellite"},
        {"track", ""},
        {"state", "ISS (ZARYA)"},
        {"state", "sun", "--minutes", "0"},
        {"state", "ISS (ZARYA)", "--minutes", "1,,2"},
        {"state", "ISS (ZARYA)", "--minutes", ""},
        {"passes"},
        {"passes", "sun", "--days", "0"},
        {"passes", "sun", "--days", "3654"},
        {"passes", "sun", "--days", "nan"},
        {"passes", "sun", "--min-elevation", "high"},
        {"list", "one", "two"},
        {"check", "one"},
        {"favourites", "one"},
        {"list", "--data", "/nowhere"},
        {"list", "--data", (folder.path() / "stations.txt").string()},
        {"track", "line\nbreak\x1B"},
    };
    for (const Texts& arguments : wrong) {
        const CliResult result = run(arguments);
        const std::string all = ::testing::PrintToString(arguments) + "\n" + result.err;
        EXPECT_EQ(result.status, 2) << all;
        EXPECT_EQ(result.out, "") << all;
        EXPECT_EQ(std::ranges::count(result.err, '\n'), 1) << all;
        EXPECT_TRUE(result.err.starts_with("vantrace-cli: ")) << all;
        EXPECT_EQ(result.err.find('\x1B'), std::string::npos);
    }
}

TEST_F(CommandLineTest, AnUnknownNameIsToldWithNamesThatAreLikeIt) {
    const CliResult result = run({"track", "zarya"});
    EXPECT_EQ(result.status, 2);
    EXPECT_NE(result.err.find("\"zarya\""), std::string::npos);
    EXPECT_NE(result.err.find("\"ISS (ZARYA)\""), std::string::npos) << result.err;
}

TEST_F(CommandLineTest, ANameIsFoundTrimmedAndAsItsCut) {
    const CliResult result =
        runCsv({"track", "  ISS (ZARYA) ", "HYPERVIEW 1G (R", "--at", "2026-08-07T00:00:00Z"});
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(csvColumn(result, "name").at(0), "ISS (ZARYA)");
}

TEST_F(CommandLineTest, CommonOptionsMayStandInFrontOfTheCommand) {
    const CliResult result = runBare({"--data", folder.path().string(), "--format=csv", "list"});
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.lines().size(), 4U);
}

}  // namespace

}  // namespace vantrace
