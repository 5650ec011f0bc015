// Files read whole and replaced whole.
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <thread>

#include "platform/file_replacement.h"
#include "platform/text_file.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/testing.h"

namespace vantrace {
namespace {

mode_t modeOf(const std::filesystem::path& path) {
    struct stat status {};
    EXPECT_EQ(stat(path.c_str(), &status), 0);
    return status.st_mode & mode_t{0777};
}

TEST(ReplaceFile, KeepsTheOldModeUnlessGivenOne) {
    const TemporaryFolder folder;
    const std::filesystem::path file = folder.path() / "file";
    replaceFile(file, "new");
    EXPECT_EQ(modeOf(file), 0644U);
    chmod(file.c_str(), 0640);
    replaceFile(file, "newer");
    EXPECT_EQ(modeOf(file), 0640U);
    replaceFile(file, "", 0600);
    EXPECT_EQ(modeOf(file), 0600U);
    EXPECT_EQ(folder.read("file"), "");
    EXPECT_EQ(folder.names(), Texts{"file"});
}

TEST(ReplaceFile, LeavesALinkAndReplacesWhatIsBehindIt) {
    const TemporaryFolder folder;
    folder.write("far/file", "old");
    std::filesystem::create_symlink("far/file", folder.path() / "link");
    replaceFile(folder.path() / "link", "new");
    EXPECT_TRUE(std::filesystem::is_symlink(folder.path() / "link"));
    EXPECT_EQ(folder.read("far/file"), "new");

    std::filesystem::create_symlink("far/made", folder.path() / "dangling");
    replaceFile(folder.path() / "dangling", "made");
    EXPECT_EQ(folder.read("far/made"), "made");

    std::filesystem::create_symlink("loop", folder.path() / "loop");
    EXPECT_THROW(replaceFile(folder.path() / "loop", "x"), FileError);
}

TEST(ReplaceFile, RefusesWhatIsNoFile) {
    const TemporaryFolder folder;
    ASSERT_EQ(mkfifo((folder.appPath() + "pipe").c_str(), 0600), 0);
    std::filesystem::create_directory(folder.path() / "sub");
    EXPECT_THROW(replaceFile(folder.path() / "pipe", "x"), FileError);
    EXPECT_THROW(replaceFile(folder.path() / "sub", "x"), FileError);
    EXPECT_THROW(replaceFile(folder.path() / "none" / "file", "x"), FileError);
    EXPECT_THROW(replaceFile("/dev/null", "x"), FileError);
    EXPECT_EQ(folder.names(), (Texts{"pipe", "sub"}));
}

TEST(ReplaceFile, AFullDiskLeavesTheOldFileAndNoScratch) {
    const TemporaryFolder folder;
    folder.write("file", "old");
    signal(SIGXFSZ, SIG_IGN);
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    rlimit small = before;
    small.rlim_cur = 100;
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
    EXPECT_THROW(replaceFile(folder.path() / "file", std::string(1000, 'x')), FileError);
    setrlimit(RLIMIT_FSIZE, &before);
    EXPECT_EQ(folder.read("file"), "old");
    EXPECT_EQ(folder.names(), Texts{"file"});
}

TEST(ReplaceFile, WhoeverKillsTheProgramFindsAWholeFile) {
    const TemporaryFolder folder;
    const std::string first(300000, 'a');
    const std::string second(500000, 'b');
    folder.write("file", first);
    for (int round = 0; round < 15; ++round) {
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            for (;;) {
                replaceFile(folder.path() / "file", second);
                replaceFile(folder.path() / "file", first);
            }
        }
        std::this_thread::sleep_for(std::chrono::microseconds(1000 + 1700 * round));
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        const std::string found = folder.read("file");
        ASSERT_TRUE(found == first || found == second)
            << "round " << round << ": " << found.size() << " bytes";
    }
}

using Lines = std::vector<std::string_view>;

std::string failureOfReading(const std::filesystem::path& path, std::size_t limitBytes) {
    try {
        readTextFile(path, limitBytes);
    } catch (const FileError& failure) {
        return failure.what();
    }
    return "";
}

TEST(SplitLines, TakesBothEndsAndALastLineWithoutOne) {
    EXPECT_EQ(splitLines(""), Lines{});
    EXPECT_EQ(splitLines("\n"), Lines{""});
    EXPECT_EQ(splitLines("a"), Lines{"a"});
    EXPECT_EQ(splitLines("a\r\nb\nc\r\n"), (Lines{"a", "b", "c"}));
    EXPECT_EQ(splitLines("a\n\n\nb"), (Lines{"a", "", "", "b"}));
    EXPECT_EQ(splitLines("a\rb\r\r\nc"), (Lines{"a\rb\r", "c"})) << "a lone CR ends nothing";
    EXPECT_EQ(splitLines("a\r\nb\r"), (Lines{"a", "b"})) << "a file cut within its last line end";
    EXPECT_EQ(splitLines("\xEF\xBB\xBF"
                         "a\nb"),
              (Lines{"a", "b"}))
        << "a mark at the start is no text";
}

TEST(ReadTextFile, ReadsEveryByteUpToTheLimitAlsoWhereAFileTellsNoSize) {
    const TemporaryFolder folder;
    const std::string content("a\0b\r\n\xff", 6);
    folder.write("file", content);
    EXPECT_EQ(readTextFile(folder.path() / "file", content.size()), content);
    EXPECT_EQ(failureOfReading(folder.path() / "file", content.size() - 1),
              folder.appPath() + "file: longer than 5 bytes");
    // Files of this file system are 0 bytes long until they are read.
    EXPECT_NE(readTextFile("/proc/self/status", 100000).find("Name:"), std::string::npos);
    EXPECT_EQ(failureOfReading("/proc/self/status", 10), "/proc/self/status: longer than 10 bytes");
}

TEST(ReadTextFile, RefusesWhatIsNoFileAndNeverWaits) {
    const TemporaryFolder folder;
    ASSERT_EQ(mkfifo((folder.appPath() + "pipe").c_str(), 0600), 0);
    EXPECT_EQ(failureOfReading(folder.path() / "pipe", 100), folder.appPath() + "pipe: not a regular file");
    EXPECT_EQ(failureOfReading("/dev/zero", 100), "/dev/zero: not a regular file");
    EXPECT_EQ(failureOfReading(folder.path(), 100), folder.path().string() + ": not a regular file");
    EXPECT_EQ(failureOfReading(folder.path() / "none", 100),
              folder.appPath() + "none: No such file or directory");
}

}  // namespace
}  // namespace vantrace
