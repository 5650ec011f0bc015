// Programs that are really started, and addresses that may be opened.
#include "platform/process.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <thread>

#include "platform/desktop.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/testing.h"

namespace vantrace {
namespace {

class ProcessTest : public ::testing::Test {
  protected:
    std::filesystem::path script(std::string_view name, const std::string& lines) const {
        folder.write(name, "#!/bin/sh\n" + lines);
        std::filesystem::permissions(folder.path() / name, std::filesystem::perms::owner_all);
        return folder.path() / name;
    }
    /// What a script writes beside itself and then moves to "result", so that it is seen whole.
    std::string result() const {
        for (int i = 0; i < 3000 && !folder.exists("result"); ++i) {
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        return folder.read("result");
    }
    std::string finish() const {
        const std::string path = folder.path().string();
        return "mv '" + path + "/part' '" + path + "/result'\n";
    }
    std::string part() const { return " >'" + folder.path().string() + "/part'\n"; }

    TemporaryFolder folder;
};

TEST_F(ProcessTest, StartsTheProgramAnewWithItsArgumentsAsTheyStand) {
    SystemProcess process(script("program", "printf '%s|' \"$@\"" + part() + finish()),
                          {"--data", "a folder", "", "$HOME;'\"*"});
    process.startAgain();
    EXPECT_EQ(result(), "--data|a folder||$HOME;'\"*|");
    EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1) << "a child is left over";
    EXPECT_EQ(errno, ECHILD);
}

TEST_F(ProcessTest, NobodyWaitsForWhatWasStarted) {
    // The program goes on until it is told to, which happens only if startDetached comes back before.
    const std::string go = "'" + folder.path().string() + "/go'";
    startDetached(script("program", "i=0\nwhile test ! -e " + go + " && test $i -lt 300\n" +
                                        "do sleep 0.1; i=$((i + 1)); done\ntest -e " + go +
                                        " && word=told || word=waited\necho $word" + part() + finish()),
                  {});
    EXPECT_FALSE(folder.exists("result"));
    folder.write("go", "");
    EXPECT_EQ(result(), "told\n");
}

TEST_F(ProcessTest, WhatWasStartedHasASessionOfItsOwnAndNoneOfOurFilesAndSignals) {
    const int open = ::open("/dev/null", O_RDONLY);
    ASSERT_GE(open, 3);
    const auto ignored = ::signal(SIGPIPE, SIG_IGN);
    // Behind the name stat has state, parent, group and session. SIGPIPE is the bit 0x1000.
    startDetached(script("program",
                         "{ cut -d ')' -f 2 /proc/$$/stat | cut -d ' ' -f 5\n"
                         "grep SigIgn /proc/$$/status | cut -c 21\n"
                         "readlink /proc/$$/fd/0 /proc/$$/fd/2\n"
                         "test -e /proc/$$/fd/" +
                             std::to_string(open) + " && echo open || echo closed\n}" + part() + finish()),
                  {});
    const std::string told = result();
    ::signal(SIGPIPE, ignored);
    ::close(open);
    const std::size_t end = told.find('\n');
    ASSERT_NE(end, std::string::npos);
    EXPECT_NE(told.substr(0, end), std::to_string(::getsid(0)));
    EXPECT_EQ(told.substr(end + 1), "0\n/dev/null\n/dev/null\nclosed\n");
}

TEST_F(ProcessTest, AFailureIsToldToAProgramWithClosedStreamsToo) {
    EXPECT_EXIT(
        {
            for (int stream = 0; stream < 3; ++stream) ::close(stream);
            try {
                startDetached(folder.path() / "missing", {});
            } catch (const std::runtime_error&) {
                ::_exit(3);
            }
            ::_exit(4);
        },
        ::testing::ExitedWithCode(3), "");
}

TEST_F(ProcessTest, AProgramThatCantBeRunIsToldWithTheReason) {
    const auto failureOf = [](const std::filesystem::path& program) -> std::string {
        try {
            SystemProcess(program, {}).startAgain();
        } catch (const std::runtime_error& failure) {
            return failure.what();
        }
        return "started";
    };
    const std::string missing = folder.path() / "missing";
    EXPECT_EQ(failureOf(missing), missing + " can't be started: No such file or directory");
    folder.write("text", "no program");
    EXPECT_EQ(failureOf(folder.path() / "text"),
              (folder.path() / "text").string() + " can't be started: Permission denied");
    EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1) << "a child is left over";
}

TEST_F(ProcessTest, EndKeepsWhatWasWrittenBefore) {
    const std::string path = folder.path() / "written";
    EXPECT_EXIT(
        {
            std::FILE* const file = std::fopen(path.c_str(), "w");
            std::fputs("whole", file);
            SystemProcess("/bin/true", {}).end(3);
        },
        ::testing::ExitedWithCode(3), "");
    EXPECT_EQ(folder.read("written"), "whole");
}

TEST(IsOpenableAddress, TakesPagesAndMailInAnyCase) {
    for (const char* const address :
         {"http://vantrace.example", "https://vantrace.example/help/?a=1&b=%20#top",
          "HTTPS://Vantrace.Example:8080/", "https://user@host/", "https://[::1]/",
          "mailto:maintainer@vantrace.example?subject=Satellite%20Info%20Request%20for%20ISS_(ZARYA)",
          "MailTo:a@b"}) {
        EXPECT_TRUE(isOpenableAddress(address)) << address;
    }
}

TEST(IsOpenableAddress, RefusesAllElse) {
    const std::vector<std::pair<const char*, Texts>> refused{
        {"starts programs or reads files",
         {"", "vantrace.example", "//vantrace.example/", "/etc/passwd", "file:///etc/passwd",
          "javascript:alert(1)", "ftp://vantrace.example/", "data:text/html,x", "smb://host/share",
          "httpx://host/", "view-source:https://host/", "--help", "-http://host/", " https://host/"}},
        {"has no place",
         {"http:", "http:host", "https://", "https:///etc/passwd", "http://?q", "http://:80/", "http://@host",
          "mailto:", "mailto:?attach=/etc/passwd", "mailto://host"}},
        {"holds signs that no address holds",
         {"https://host/a b", "https://host/\n", std::string("https://host/\0file", 18),
          "https://host/\x1b[2J", "https://host/\x7f", "https://host/\"quoted\"", "https://host/`id`",
          "https://host\\share", "https://host/<b>", "https://host/{a,b}|c", "https://h\xC3\xB6st/",
          "https://host/\x9b"}}};
    for (const auto& [reason, addresses] : refused)
        for (const std::string& address : addresses)
            EXPECT_FALSE(isOpenableAddress(address)) << address << ' ' << reason;
}

TEST(NoDesktop, SaysThatThereIsNoneToOpenAnything) {
    NoDesktop desktop;
    try {
        desktop.openAddress("https://vantrace.example/");
        FAIL();
    } catch (const DesktopError& failure) {
        EXPECT_STREQ(failure.what(), "there is no desktop to open https://vantrace.example/");
    }
    EXPECT_THROW(desktop.openTextFile("/etc/passwd"), DesktopError);
    EXPECT_FALSE(desktop.hasSystemInformation());
    EXPECT_THROW(desktop.startSystemInformation(), DesktopError);
}

}  // namespace
}  // namespace vantrace
