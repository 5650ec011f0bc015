// The program as a process: what only the process has.
#include <sys/wait.h>

#include <cstdio>
#include <cstdlib>

#include "tests/app/cli_run.h"

namespace vantrace {

namespace {

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
    EXPECT_NE(folder.read("config/vantrace/settings.conf").find("Latitude=0"), std::string::npos);
    const CliResult full = shell("$CLI list --data $DATA 2>&1 >/dev/full");
    EXPECT_EQ(full.status, 1);
    EXPECT_NE(full.out.find("can't be written"), std::string::npos) << full.out;
}

}  // namespace

}  // namespace vantrace
