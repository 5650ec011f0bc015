#include <sys/stat.h>
#include <sys/wait.h>

#include <cstdio>

#include "tests/app/cli_run.h"

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

TEST_F(BatchTest, TakesEveryLineEndAndPassesBlankAndEndlessLinesOver) {
    folder.write("batch.csv",
                 "\xEF\xBB\xBF"
                 "2026-08-21,sun\r\n\r\n  \n\n2026-08-22,moon");
    const CliResult result = runCsv({"track", "--batch", (folder.path() / "batch.csv").string()});
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(csvColumn(result, "name"), (Texts{"sun", "moon"}));
    const CliResult endless =
        runCsv({"track", "--batch", "-"}, std::string(1000000, 'x') + "\n2026-08-21,sun\n");
    ASSERT_EQ(endless.lines().size(), 3U);
    EXPECT_LT(endless.lines()[1].size(), 200U);
    EXPECT_TRUE(endless.lines()[2].starts_with("sun,"));
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
        expectFailure(2, {"track", "--batch", path, "--format=csv"}, {path});
    }
}

/// The program as a process: what only the process has.
class ProcessTest : public CliTest {
  protected:
    /// Runs a line of the shell in which $CLI is the program; the settings lie in a folder of the test.
    CliResult shell(const std::string& line) {
        const std::string home = folder.path().string();
        const std::string setting = "export HOME='" + home + "' XDG_CONFIG_HOME='" + home +
                                    "/config' DATA='" + home + "' CLI='" VANTRACE_CLI_PATH "'; ";
        CliResult result;
        FILE* const pipe = ::popen((setting + line).c_str(), "r");
        if (pipe == nullptr) return result;
        std::array<char, 4096> buffer{};
        while (const std::size_t count = std::fread(buffer.data(), 1, buffer.size(), pipe)) {
            result.out.append(buffer.data(), count);
        }
        const int status = ::pclose(pipe);
        result.status = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
        return result;
    }
};

TEST_F(ProcessTest, TellsGoodIncompleteAndWrongByItsStatus) {
    EXPECT_EQ(shell("$CLI track sun --data $DATA --site -33.9,151.2,20").status, 0);
    EXPECT_EQ(shell("$CLI track 'HYPERVIEW 1G (RS66S)' --at 2026-09-30 --data $DATA 2>/dev/null").status, 1);
    EXPECT_EQ(shell("$CLI track nobody --data $DATA 2>/dev/null").status, 2);
    EXPECT_EQ(shell("$CLI --help").status, 0);
}

TEST_F(ProcessTest, ABatchAnswersALineBeforeItAsksForTheNext) {
    // The reader of the answers lets the questions go on: if an answer stayed in a buffer, nothing would.
    const CliResult result = shell(
        "cd $DATA; mkfifo ask answer; $CLI track --batch - --format csv --data $DATA --site 1,2,3 <ask "
        ">answer & "
        "exec 4>ask 5<answer; read heading <&5; echo 2026-08-21,sun >&4; read -r first <&5; "
        "echo 2026-08-21,moon >&4; read -r second <&5; exec 4>&-; wait; echo \"$first|$second\"");
    EXPECT_TRUE(result.out.starts_with("sun,2026-08-21T00:00:00Z,")) << result.out;
    EXPECT_NE(result.out.find("|moon,2026-08-21T00:00:00Z,"), std::string::npos) << result.out;
}

TEST_F(ProcessTest, AReaderWhoLeavesAndClosedStreamsDoNoHarm) {
    const CliResult left = shell(
        "($CLI track sun --every 1 --count 100000 --data $DATA 2>$DATA/err; echo status $? >$DATA/status) | "
        "head -n 1 >/dev/null; cat $DATA/status $DATA/err");
    EXPECT_EQ(left.out, "status 0\n");
    EXPECT_EQ(shell("$CLI list --data $DATA >&-").status, 0);
    EXPECT_EQ(shell("$CLI track sun --data $DATA <&- >&- 2>&-").status, 0);
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "config/vantrace/settings.conf"))
        << "whoever only reads leaves the first start to the tracker";
    const CliResult full = shell("$CLI list --data $DATA 2>&1 >/dev/full");
    EXPECT_EQ(full.status, 1);
    EXPECT_NE(full.out.find("can't be written"), std::string::npos) << full.out;
}

}  // namespace
}  // namespace vantrace
