#include "platform/program_folder.h"

#include <cstdlib>

#include "tests/support/temporary_folder.h"
#include "tests/support/testing.h"

namespace vantrace {
namespace {

class ProgramFolderTest : public testing::Test {
  protected:
    void install() const {
        folder.write("usr/bin/vantrace", "");
        folder.write("usr/share/vantrace/faves.dat", "ONE\r\n");
        folder.write("usr/share/vantrace/sub/picture.jpg", "picture");
        std::filesystem::permissions(folder.path() / "usr/share/vantrace/faves.dat",
                                     std::filesystem::perms::owner_read);
    }
    ProgramFolderRequest request(const std::string& executable) const {
        const std::filesystem::path home = folder.path() / "home";
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
    const auto rights = std::filesystem::status(own + "faves.dat").permissions();
    EXPECT_NE(rights & std::filesystem::perms::owner_write, std::filesystem::perms::none);

    folder.write("home/.local/share/vantrace/faves.dat", "TWO\r\n");
    EXPECT_EQ(programFolder(request("usr/bin/vantrace")), own);
    EXPECT_EQ(folder.read("home/.local/share/vantrace/faves.dat"), "TWO\r\n") << "filled only once";
}

TEST_F(ProgramFolderTest, ACopyThatFailsLeavesNoHalfFolderAndTheInstalledOneServes) {
    install();
    const std::string installed = (folder.path() / "usr/share/vantrace/").string();
    folder.write("home/.local/share", "a file in the way");
    EXPECT_EQ(programFolder(request("usr/bin/vantrace")), installed);

    std::filesystem::remove(folder.path() / "home/.local/share");
    std::filesystem::create_symlink("loop", folder.path() / "usr/share/vantrace/sub/loop");
    EXPECT_EQ(programFolder(request("usr/bin/vantrace")), installed);
    EXPECT_TRUE(std::filesystem::is_empty(folder.path() / "home/.local/share"));
}

TEST_F(ProgramFolderTest, AFileInThePlaceOfTheUsersFolderIsTold) {
    install();
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
    std::filesystem::current_path(folder.path());
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
}

TEST(ExecutablePath, IsThisProgram) {
    EXPECT_EQ(executablePath().filename(), "platform_tests");
}

}  // namespace
}  // namespace vantrace
