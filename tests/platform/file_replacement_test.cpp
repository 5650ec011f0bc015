#include "platform/file_replacement.h"

#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <thread>

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

}  // namespace
}  // namespace vantrace
