#include <sys/stat.h>

#include "tests/app/cli_run.h"
#include "tests/support/testing.h"

namespace vantrace {

namespace {

using BatchTest = CliTest;

TEST_F(BatchTest, AnswersAsTheSingleQuestionsWould) {
    const std::string time = "2026-08-21T20:00:00.123456Z";
    const CliResult batch = runCsv({"track", "--batch", "-"}, time + ",ISS (ZARYA)\n" + time + ",moon\n");
    const CliResult single = runCsv({"track", "ISS (ZARYA)", "moon", "--at", time});
    EXPECT_EQ(batch.status, 0);
    EXPECT_EQ(batch.out, single.out);
}

TEST_F(BatchTest, GoesOnAfterLinesThatFail) {
    const CliResult result = runCsv({"track", "--batch", "-"},
                                    "2026-08-21T20:00:00Z,NO, SUCH \"ONE\"\n"
                                    "yesterday,sun\n"
                                    "without a comma\n"
                                    "2026-08-21,\n"
                                    "2026-09-30,HYPERVIEW 1G (RS66S)\n"
                                    "2026-08-21,sun\n");
    EXPECT_EQ(result.status, 0);
    const Texts lines = result.lines();
    ASSERT_EQ(lines.size(), 7U);
    EXPECT_EQ(lines[1], "\"NO, SUCH \"\"ONE\"\"\",2026-08-21T20:00:00Z,,,,,,,,,,,");
    EXPECT_EQ(lines[2], "sun,yesterday,,,,,,,,,,,");
    EXPECT_EQ(lines[3], ",without a comma,,,,,,,,,,,");
    EXPECT_EQ(lines[4], ",2026-08-21T00:00:00Z,,,,,,,,,,,");
    EXPECT_EQ(lines[5], "HYPERVIEW 1G (RS66S),2026-09-30T00:00:00Z,,,,,,,,,,,");
    EXPECT_FALSE(lines[6].ends_with(",,"));
    EXPECT_EQ(std::ranges::count(result.err, '\n'), 5);
    for (const char* part :
         {"line 1: NO, SUCH", "line 2: \"yesterday\"", "line 5: HYPERVIEW 1G (RS66S) at 2026-09-30"}) {
        EXPECT_NE(result.err.find(part), std::string::npos) << result.err;
    }
}

TEST_F(BatchTest, TakesEveryLineEndAndPassesBlankLinesOver) {
    folder.write("batch.csv",
                 "\xEF\xBB\xBF"
                 "2026-08-21,sun\r\n\r\n  \n\n2026-08-22,moon");
    const CliResult result = runCsv({"track", "--batch", (folder.path() / "batch.csv").string()});
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(csvColumn(result, "name"), (Texts{"sun", "moon"}));
}

TEST_F(BatchTest, AnEndlessLineCostsItsOwnRowAlone) {
    const CliResult result =
        runCsv({"track", "--batch", "-"}, std::string(1000000, 'x') + "\n2026-08-21,sun\n");
    ASSERT_EQ(result.lines().size(), 3U);
    EXPECT_LT(result.lines()[1].size(), 200U);
    EXPECT_TRUE(result.lines()[2].starts_with("sun,"));
}

TEST_F(BatchTest, RubbishNeverReachesTheTerminalRaw) {
    std::string rubbish;
    for (int i = 0; i < 20000; ++i) rubbish += static_cast<char>((i * 7919 + i / 251) % 256);
    const CliResult result =
        run({"track", "--batch", "-"}, rubbish + "\n\x1B[2J,\x1B]0;x\x07\n2026-08-21,sun\n");
    EXPECT_EQ(result.status, 0);
    EXPECT_NE(result.out.find("\nsun "), std::string::npos);
    for (const std::string& text : {result.out, result.err}) {
        const auto isControl = [](char each) {
            return (each >= 0 && each < ' ' && each != '\n') || each == '\x7F';
        };
        EXPECT_TRUE(std::ranges::none_of(text, isControl));
    }
}

TEST_F(BatchTest, WhatIsNoFileIsAUserError) {
    const std::string pipe = (folder.path() / "pipe").string();
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    for (const std::string& path :
         {folder.path().string(), std::string("/nowhere/batch"), pipe, std::string("/dev/zero")}) {
        const CliResult result = runCsv({"track", "--batch", path});
        EXPECT_EQ(result.status, 2) << path;
        EXPECT_NE(result.err.find(path), std::string::npos) << result.err;
        EXPECT_EQ(result.out, "");
    }
}

TEST_F(BatchTest, NamesAndTimesComeFromTheFileAlone) {
    EXPECT_EQ(run({"track", "--batch", "-", "sun"}).status, 2);
    EXPECT_EQ(run({"track", "--batch", "-", "--at", "2026-08-21"}).status, 2);
}

}  // namespace

}  // namespace vantrace
