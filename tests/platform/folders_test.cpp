// The program's folder, the current directory, and new names in it.
#include <cstdlib>

#include "platform/file_renaming.h"
#include "platform/program_folder.h"
#include "platform/working_folder.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/testing.h"

namespace vantrace {
namespace {

namespace fs = std::filesystem;

class ProgramFolderTest : public testing::Test {
  protected:
    void install() const {
        folder.write("usr/bin/vantrace", "");
        folder.write("usr/share/vantrace/faves.dat", "ONE\r\n");
        folder.write("usr/share/vantrace/sub/picture.jpg", "picture");
        fs::permissions(folder.path() / "usr/share/vantrace/faves.dat", fs::perms::owner_read);
    }
    ProgramFolderRequest request(const std::string& executable) const {
        const fs::path home = folder.path() / "home";
        return {folder.path() / executable, {home, home / ".config", home / ".local/share"}, std::nullopt};
    }

    const TemporaryFolder folder;
};

TEST_F(ProgramFolderTest, PortableIsBesideTheExecutable) {
    folder.write("vantrace/vantrace", "");
    folder.write("bin/vantrace", "");
    EXPECT_EQ(programFolder(request("vantrace/vantrace")), folder.appPath() + "vantrace/");
    EXPECT_EQ(programFolder(request("bin/vantrace")), folder.appPath() + "bin/")
        << "without shared data a folder named bin is like any other";
    EXPECT_EQ(programFolder({"/vantrace", {}, std::nullopt}), "/");
}

TEST_F(ProgramFolderTest, InstalledIsTheUsersOwnWritableCopy) {
    install();
    const std::string own = programFolder(request("usr/bin/vantrace"));
    EXPECT_EQ(own, folder.appPath() + "home/.local/share/vantrace/");
    EXPECT_EQ(folder.read("home/.local/share/vantrace/faves.dat"), "ONE\r\n");
    EXPECT_EQ(folder.read("home/.local/share/vantrace/sub/picture.jpg"), "picture");
    const auto rights = fs::status(own + "faves.dat").permissions();
    EXPECT_NE(rights & fs::perms::owner_write, fs::perms::none);

    folder.write("home/.local/share/vantrace/faves.dat", "TWO\r\n");
    EXPECT_EQ(programFolder(request("usr/bin/vantrace")), own);
    EXPECT_EQ(folder.read("home/.local/share/vantrace/faves.dat"), "TWO\r\n") << "filled only once";
}

TEST_F(ProgramFolderTest, ACopyThatFailsLeavesNoHalfFolderAndTheInstalledOneServes) {
    install();
    const std::string installed = (folder.path() / "usr/share/vantrace/").string();
    folder.write("home/.local/share", "a file in the way");
    EXPECT_EQ(programFolder(request("usr/bin/vantrace")), installed);

    fs::remove(folder.path() / "home/.local/share");
    fs::create_symlink("loop", folder.path() / "usr/share/vantrace/sub/loop");
    EXPECT_EQ(programFolder(request("usr/bin/vantrace")), installed);
    EXPECT_TRUE(fs::is_empty(folder.path() / "home/.local/share"));
    folder.write("home/.local/share/vantrace", "");
    EXPECT_THROW(programFolder(request("usr/bin/vantrace")), FileError);
}

TEST_F(ProgramFolderTest, ReadersMakeNothing) {
    install();
    EXPECT_EQ(readOnlyProgramFolder(request("usr/bin/vantrace")), folder.appPath() + "usr/share/vantrace/");
    EXPECT_FALSE(folder.exists("home"));
    const std::string own = programFolder(request("usr/bin/vantrace"));
    EXPECT_EQ(readOnlyProgramFolder(request("usr/bin/vantrace")), own);
}

TEST_F(ProgramFolderTest, TheNamedFolderWinsAndMustBeThere) {
    install();
    folder.write("mine/faves.dat", "");
    ProgramFolderRequest named = request("usr/bin/vantrace");
    named.named = folder.appPath() + "mine///";
    EXPECT_EQ(programFolder(named), folder.appPath() + "mine/");
    fs::current_path(folder.path());
    named.named = "mine/../mine";
    EXPECT_EQ(programFolder(named), folder.appPath() + "mine/");
    named.named = "/";
    EXPECT_EQ(programFolder(named), "/");
    for (const char* const bad : {"none", "mine/faves.dat", ""}) {
        named.named = bad;
        EXPECT_THROW(programFolder(named), FileError) << bad;
    }
}

TEST(UserEnvironment, TakesTheFoldersOfTheEnvironmentUnlessRelative) {
    setenv("HOME", "/home/ada", 1);
    setenv("XDG_CONFIG_HOME", "/etc/ada", 1);
    setenv("XDG_DATA_HOME", "relative", 1);
    const UserEnvironment user = userEnvironment();
    EXPECT_EQ(settingsPath(user), "/etc/ada/vantrace/settings.conf");
    EXPECT_EQ(user.dataHome, "/home/ada/.local/share");
    unsetenv("XDG_CONFIG_HOME");
    EXPECT_EQ(settingsPath(userEnvironment()), "/home/ada/.config/vantrace/settings.conf");
    unsetenv("HOME");
    EXPECT_TRUE(userEnvironment().home.is_absolute());
    EXPECT_EQ(executablePath().filename(), "platform_tests");
}

class WorkingFolderTest : public ::testing::Test {
  protected:
    ~WorkingFolderTest() override { fs::current_path("/"); }

    TemporaryFolder folder;
    TemporaryFolder refuge;
};

TEST_F(WorkingFolderTest, AFolderThatTakesFilesStays) {
    fs::current_path(folder.path());
    leaveUnwritableFolder(refuge.path());
    EXPECT_EQ(fs::current_path(), fs::canonical(folder.path()));
    EXPECT_TRUE(folder.names().empty()) << "the trial leaves nothing";
}

TEST_F(WorkingFolderTest, OneThatTakesNoneIsLeft) {
    // Folders of the system itself refuse even those who may write everything.
    fs::current_path("/proc/self");
    leaveUnwritableFolder(refuge.path() / "nowhere");
    EXPECT_EQ(fs::current_path().parent_path(), "/proc") << "there is no such refuge";
    leaveUnwritableFolder(refuge.path());
    EXPECT_EQ(fs::current_path(), fs::canonical(refuge.path()));

    fs::create_directory(folder.path() / "gone");
    fs::current_path(folder.path() / "gone");
    fs::remove(folder.path() / "gone");
    leaveUnwritableFolder(refuge.path());
    EXPECT_EQ(fs::current_path(), fs::canonical(refuge.path()));
}

TEST_F(WorkingFolderTest, ANewNameNeverCostsAFileNorLeavesTheFolder) {
    folder.write("inner/sound.wav", "sound");
    folder.write("inner/taken.wav", "taken");
    const fs::path file = folder.path() / "inner" / "sound.wav";
    const std::string withZero("a\0b", 3);
    for (const std::string& name :
         {std::string("taken.wav"), std::string("../sound.wav"), std::string("/sound.wav"), std::string(".."),
          std::string("."), std::string(), std::string(256, 'n'), withZero}) {
        EXPECT_FALSE(renameInItsFolder(file, name)) << name;
        EXPECT_EQ(folder.read("inner/sound.wav"), "sound") << name;
    }
    EXPECT_EQ(folder.read("inner/taken.wav"), "taken");
    EXPECT_TRUE(renameInItsFolder(file, "A B, C.wav"));
    EXPECT_EQ(folder.read("inner/A B, C.wav"), "sound");
    EXPECT_FALSE(renameInItsFolder(file, "again.wav"));
}

}  // namespace
}  // namespace vantrace
