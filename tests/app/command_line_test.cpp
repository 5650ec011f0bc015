#include "app/program/arguments.h"
#include "app/program/site.h"
#include "platform/text_file.h"
#include "tests/app/cli_run.h"

namespace vantrace {
namespace {

using CommandLineTest = CliTest;

TEST_F(CommandLineTest, EveryCommandHasHelpAndVersion) {
    const CliResult help = runBare({"--help"});
    EXPECT_EQ(help.status, 0);
    const std::string version = runBare({"--version"}).out;
    EXPECT_TRUE(version.starts_with("vantrace-cli "));
    for (const std::string command : {"track", "state", "passes", "list", "check", "favourites", "today"}) {
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

TEST_F(CommandLineTest, AUsersErrorIsOneLineWithNamesThatAreLikeItAndStatus2) {
    const std::vector<std::pair<std::string, Texts>> wrong{
        {"", {"", "trak"}},
        {"track ",
         {"", "\"\"", "sun --nonsense", "sun --at", "sun --at noon", "sun --at 2026-13-01", "sun --every 1",
          "sun --every -1 --count 2", "sun --every 1 --count 2.5", "sun --format xml", "sun --site 1,2",
          "\"no such satellite\"", "\"line\nbreak\x1B\"", "--batch - sun", "--batch - --at 2026-08-21"}},
        {"state ",
         {"\"ISS (ZARYA)\"", "sun --minutes 0", "\"ISS (ZARYA)\" --minutes 1,,2",
          "\"ISS (ZARYA)\" --minutes \"\""}},
        {"passes ", {"", "sun --days 0", "sun --days 3654", "sun --days nan", "sun --min-elevation high"}},
        {"list ", {"one two", "--data /nowhere", "--data " + (folder.path() / "stations.txt").string()}},
        {"check ", {"one"}},
        {"favourites ", {"one"}}};
    for (const auto& [command, lines] : wrong) {
        for (const std::string& line : lines) {
            const CliResult result = run(wordsOf(command + line));
            SCOPED_TRACE(command + line + "\n" + result.err);
            EXPECT_EQ(result.status, 2);
            EXPECT_EQ(result.out, "");
            EXPECT_EQ(std::ranges::count(result.err, '\n'), 1);
            EXPECT_TRUE(result.err.starts_with("vantrace-cli: "));
            EXPECT_EQ(result.err.find('\x1B'), std::string::npos);
        }
    }
    expectFailure(2, {"track", "zarya"}, {"\"zarya\"", "\"ISS (ZARYA)\""});
}

TEST_F(CommandLineTest, ANameIsFoundTrimmedAndAsItsCutAndOptionsMayComeFirst) {
    const CliResult result =
        runCsv({"track", "  ISS (ZARYA) ", "HYPERVIEW 1G (R", "--at", "2026-08-07T00:00:00Z"});
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(csvColumn(result, "name").at(0), "ISS (ZARYA)");
    EXPECT_EQ(runBare({"--data", folder.path().string(), "--format=csv", "list"}).lines().size(), 4U);
}

using SiteTest = CliTest;

TEST_F(SiteTest, IsReadFromTheSettingsWithWestLongitudeAndDecimalComma) {
    fakes.settings.set("Location Name", "Zuerich");
    fakes.settings.set("Latitude", "47,38");
    fakes.settings.set("Longitude", "351,46");
    fakes.settings.set("HASL", "450,0");
    const Texts arguments{"track", "ISS (ZARYA)", "--data", folder.path().string()};
    const CliResult stored = runBare(arguments);
    EXPECT_EQ(stored.err, "");
    EXPECT_EQ(stored.out, run({"track", "ISS (ZARYA)", "--site", "47.38,8.54,450"}).out);
    const Site place = siteOfSettings(fakes.services);
    EXPECT_NEAR(place.longitudeDeg, 8.54, 1e-9);
    EXPECT_EQ(placeText(place), "47.3800 N 8.5400 E, 450 m");
}

TEST_F(SiteTest, ASettingThatIsNoPlaceIsNamed) {
    fakes.settings.set("Latitude", "north");
    const CliResult result = runBare({"track", "sun", "--data", folder.path().string()});
    EXPECT_EQ(result.status, 2);
    EXPECT_NE(result.err.find("\"Latitude\" is \"north\""), std::string::npos) << result.err;
    // What needs no place doesn't look at it, and a given one takes its place.
    EXPECT_EQ(runBare({"list", "--data", folder.path().string()}).status, 0);
    EXPECT_EQ(run({"track", "sun"}).status, 0);
}

TEST_F(SiteTest, NegativeNumbersWorkWithAndWithoutTheEqualsSignAndWhatIsNoPlaceIsAUserError) {
    const std::string expected = run({"track", "sun", "--site", " -33.9 , 151.2 , +20 "}).out;
    EXPECT_EQ(run({"track", "sun", "--site", "-33.9,151.2,20"}).out, expected);
    EXPECT_EQ(run({"track", "sun", "--site=-33.9,151.2,20"}).out, expected);
    const Site place = parseSite("-33.9,-151.2,-20");
    EXPECT_EQ(placeText(place), "33.9000 S 151.2000 W, -20 m");
    for (const char* text : {"", "1,2", "1,2,3,4", "91,0,0", "0,181,0", "0,0,x", "0,0,", "nan,0,0", "0,inf,0",
                             "0,0,1e9", "0x10,0,0", "1 2,0,0"}) {
        EXPECT_THROW(parseSite(text), UserError) << text;
    }
}

TEST(EastLongitude, LiesAboveMinus180UpTo180) {
    for (const auto& [given, east] : std::vector<std::pair<double, double>>{
             {190, -170}, {-360, 0}, {-180, 180}, {180, 180}, {540, 180}}) {
        EXPECT_DOUBLE_EQ(eastLongitude(given), east);
    }
}

// The examples of the user guide, run as they stand.
constexpr std::string_view prompt = "$ vantrace-cli ";
constexpr std::string_view fence = "```";

/// A fenced block that begins with a command and goes on with all that it prints.
struct GuideExample {
    std::string command;
    std::string output;
};

/// The blocks whose first line begins with the prompt.
std::vector<GuideExample> examplesOf(std::string_view guide) {
    std::vector<GuideExample> examples;
    bool isInBlock = false;
    bool isFirst = false;
    bool isExample = false;
    for (const std::string_view line : splitLines(guide)) {
        if (line.starts_with(fence)) {
            isInBlock = !isInBlock;
            isFirst = isInBlock;
            isExample = false;
        } else if (isFirst) {
            isFirst = false;
            isExample = line.starts_with(prompt);
            if (isExample) examples.push_back({std::string(line.substr(prompt.size())), {}});
        } else if (isExample) {
            examples.back().output += std::string(line) + "\n";
        }
    }
    return examples;
}

using GuideExamplesTest = CliTest;

TEST_F(GuideExamplesTest, EveryExamplePrintsWhatTheGuideShows) {
    const std::vector<GuideExample> examples =
        examplesOf(readTextFile(VANTRACE_SOURCE_FOLDER "/docs/USER_GUIDE.md", std::size_t{1} << 20));
    ASSERT_FALSE(examples.empty());
    for (const GuideExample& example : examples) {
        SCOPED_TRACE(example.command);
        Texts words = wordsOf(example.command);
        // The guide is read in the source folder; where the test runs nobody knows.
        for (std::string& word : words) {
            if (word == "data") word = VANTRACE_SOURCE_FOLDER "/data";
        }
        const CliResult result = runBare(words);
        EXPECT_EQ(result.out + result.err, example.output);
        EXPECT_EQ(result.status, result.err.empty() ? 0 : 2);
    }
}

}  // namespace
}  // namespace vantrace
