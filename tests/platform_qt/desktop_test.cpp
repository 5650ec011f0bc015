// The desktop's tools are scripts in a folder that is all of PATH.

#include <QByteArray>
#include <thread>

#include "platform/qt/qt_desktop.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/testing.h"

namespace vantrace {
namespace {

class QtDesktopTest : public ::testing::Test {
  protected:
    QtDesktopTest() {
        qputenv("PATH", QByteArray::fromStdString(folder.path().string() + "/bin"));
        for (const char* const variable : {"VISUAL", "EDITOR", "BROWSER", "XDG_CURRENT_DESKTOP"}) {
            qunsetenv(variable);
        }
        folder.write("history.txt", "What is new");
    }
    ~QtDesktopTest() override { qputenv("PATH", m_path); }

    /// A program that notes its name and arguments and then goes on while the test does; where the test waits
    /// for its end, it leaves a note of that.
    void install(const std::string& name) const {
        folder.write("bin/" + name, "#!/bin/sh\ncd '" + folder.path().string() + "'\nprintf '%s' " + name +
                                        " >part\nprintf '|%s' \"$@\" >>part\n/bin/mv part result\ni=0\n"
                                        "while test -e history.txt && test $i -lt 150\n"
                                        "do /bin/sleep 0.2; i=$((i + 1)); done\n"
                                        "test -e history.txt && : >waited\n");
        std::filesystem::permissions(folder.path() / "bin" / name, std::filesystem::perms::owner_all);
    }
    /// What was started.
    std::string started() const {
        for (int i = 0; i < 3000 && !folder.exists("result"); ++i) {
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        const std::string told = folder.read("result");
        std::filesystem::remove(folder.path() / "result");
        return told;
    }
    std::string history() const { return folder.path() / "history.txt"; }

    TemporaryFolder folder;
    QtDesktop desktop;

  private:
    QByteArray m_path = qgetenv("PATH");
};

TEST_F(QtDesktopTest, HandsAddressesAndTextsOverAndWaitsForNothing) {
    install("xdg-open");
    desktop.openAddress("https://vantrace.example/help/?a=1&b=%20;$(id)");
    EXPECT_EQ(started(), "xdg-open|https://vantrace.example/help/?a=1&b=%20;$(id)");
    desktop.openAddress("mailto:a@b.example?subject=Satellite%20Info%20Request%20for%20ISS_(ZARYA)");
    EXPECT_EQ(started(),
              "xdg-open|mailto:a@b.example?subject=Satellite%20Info%20Request%20for%20ISS_(ZARYA)");
    desktop.openTextFile(history());
    EXPECT_EQ(started(), "xdg-open|" + history());
    EXPECT_FALSE(folder.exists("waited"));
}

TEST_F(QtDesktopTest, RefusesOtherAddressesAndWhatIsNoTextFileAndStartsNothing) {
    install("xdg-open");
    for (const char* const address :
         {"file:///etc/passwd", "javascript:alert(1)", "ftp://host/", "/etc/passwd", "", "--version",
          "https://host/a b", "https://host/\n", "https://host/%zz", "https://host:99999/",
          "https://ho%00st/", "https://[::1/"}) {
        EXPECT_THROW(desktop.openAddress(address), DesktopError) << address;
    }
    std::filesystem::create_symlink("missing", folder.path() / "dangling.txt");
    for (const std::filesystem::path& file :
         {folder.path(), folder.path() / "missing.txt", folder.path() / "dangling.txt",
          std::filesystem::path("/dev/null"), std::filesystem::path()}) {
        EXPECT_THROW(desktop.openTextFile(file), DesktopError) << file;
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    EXPECT_FALSE(folder.exists("result"));
}

TEST_F(QtDesktopTest, WithoutTheCommonToolLooksForAnEditor) {
    EXPECT_THROW(desktop.openTextFile(history()), DesktopError);
    EXPECT_THROW(desktop.openAddress("https://vantrace.example/"), DesktopError);
    install("x-terminal-emulator");
    install("vi");
    qputenv("EDITOR", "vi -R");
    desktop.openTextFile(history());
    EXPECT_EQ(started(), "x-terminal-emulator|-e|vi|-R|" + history());
    install("mousepad");
    desktop.openTextFile(history());
    EXPECT_EQ(started(), "mousepad|" + history());
    folder.write("bin/xdg-open", "#!/no/such/shell\n");
    std::filesystem::permissions(folder.path() / "bin/xdg-open", std::filesystem::perms::owner_all);
    EXPECT_THROW(desktop.openTextFile(history()), DesktopError) << "there, but it can't be run";
    EXPECT_THROW(desktop.openAddress("https://vantrace.example/"), DesktopError);
}

TEST_F(QtDesktopTest, StartsTheToolThatSuitsTheDesktop) {
    EXPECT_FALSE(desktop.hasSystemInformation());
    EXPECT_THROW(desktop.startSystemInformation(), DesktopError);
    install("gnome-control-center");
    EXPECT_FALSE(desktop.hasSystemInformation()) << "runs on its own desktop only";
    install("hardinfo");
    EXPECT_TRUE(desktop.hasSystemInformation());
    desktop.startSystemInformation();
    EXPECT_EQ(started(), "hardinfo|");
    qputenv("XDG_CURRENT_DESKTOP", "ubuntu:GNOME");
    desktop.startSystemInformation();
    EXPECT_EQ(started(), "gnome-control-center|info-overview");
    desktop.startTimeSettings();
    EXPECT_EQ(started(), "gnome-control-center|datetime");
    qputenv("XDG_CURRENT_DESKTOP", "LXQt");
    EXPECT_THROW(desktop.startTimeSettings(), DesktopError);
}

TEST_F(QtDesktopTest, StartsAProgramWithoutArgumentsAndTellsOneThatCantBeRun) {
    install("starter.exe");
    desktop.startProgram(folder.path() / "bin/starter.exe");
    EXPECT_EQ(started(), "starter.exe|");
    EXPECT_FALSE(folder.exists("waited"));
    EXPECT_THROW(desktop.startProgram(folder.path() / "history.txt"), DesktopError);
    EXPECT_THROW(desktop.startProgram(folder.path() / "missing.exe"), DesktopError);
}

}  // namespace
}  // namespace vantrace
