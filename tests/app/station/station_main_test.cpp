#include "app/station/station_main.h"

#include <QProcess>
#include <QProcessEnvironment>

#include "app/station/termination.h"
#include "platform/file_error.h"
#include "platform/system_clock.h"
#include "tests/app/station/tcp_daemon.h"
#include "tests/support/temporary_folder.h"

namespace vantrace {
namespace {

class NoBytes final : public ByteSource {
  public:
    std::size_t read(std::span<char>) override { return 0; }
};

TEST(StationMain, WhereTheMachineDoesntTellOfTheProgramOnlyItsRunEnds) {
    const TemporaryFolder folder;
    SystemClock clock;
    FileSettingsStore settings(folder.path() / "settings");
    StationSurroundings surroundings{clock, settings, {}, []() -> ProgramFolderRequest {
                                         throw FileError("/proc/self/exe", "no such file");
                                     }};
    NoBytes in;
    std::ostringstream out;
    std::ostringstream err;
    Console console{in, out, err};
    Termination termination;
    EXPECT_EQ(runStation({"--version"}, surroundings, console, termination), 0);
    EXPECT_EQ(runStation({"--help"}, surroundings, console, termination), 0);
    EXPECT_EQ(err.str(), "");
    EXPECT_EQ(runStation({"--dry"}, surroundings, console, termination), 1);
    EXPECT_NE(err.str().find("/proc/self/exe"), std::string::npos) << err.str();
    EXPECT_EQ(runStation({"--nonsense"}, surroundings, console, termination), 2);
}

/// The starter in a program folder, beside a station that only notes what it was told.
class StarterTest : public ::testing::Test {
  protected:
    StarterTest() {
        namespace fs = std::filesystem;
        fs::create_directory(program);
        fs::copy_file(VANTRACE_STARTER, program / "wispdde.exe");
        folder.write("program/vantrace-station",
                     "#!/bin/sh\necho a word\necho \"$@\" >\"" + noted.string() + "\"\n");
        for (const char* const name : {"wispdde.exe", "vantrace-station"}) {
            fs::permissions(program / name, fs::perms::owner_all);
        }
    }
    ~StarterTest() override { std::filesystem::permissions(program, std::filesystem::perms::owner_all); }
    /// Whether the station was started and has noted that.
    bool starts(const QStringList& arguments = {}) const {
        std::filesystem::remove(noted);
        const QString starter = QString::fromStdString((program / "wispdde.exe").string());
        return QProcess::execute(starter, arguments) == 0 &&
               eventually([&] { return folder.read("noted").ends_with("\n"); });
    }
    std::string whatWasNoted() const { return folder.read("noted"); }
    std::string log() const { return folder.read("program/station.log"); }

    const TemporaryFolder folder;
    const std::filesystem::path program = folder.path() / "program";
    const std::filesystem::path noted = folder.path() / "noted";
};

TEST_F(StarterTest, StartsTheStationOfItsFolderWithALogThatIsKept) {
    ASSERT_TRUE(starts({"--radio", "none"}));
    EXPECT_EQ(whatWasNoted(), "--data " + program.string() + " --radio none\n");
    ASSERT_TRUE(starts());
    EXPECT_EQ(log(), "a word\na word\n");
    ASSERT_TRUE(starts({"--stop"}));
    EXPECT_EQ(log(), "a word\na word\n") << "who ends it reads it himself";
}

TEST_F(StarterTest, TellsTheLogThatThereIsNoStation) {
    std::filesystem::remove(program / "vantrace-station");
    QProcess starter;
    QProcessEnvironment environment;
    environment.insert("PATH", "");
    environment.insert("HOME", QString::fromStdString(program.string()));
    starter.setProcessEnvironment(environment);
    starter.start(QString::fromStdString((program / "wispdde.exe").string()), {});
    ASSERT_TRUE(starter.waitForFinished());
    if (starter.exitCode() == 0) GTEST_SKIP() << "a station is installed on this machine";
    EXPECT_EQ(log().find("vantrace-station was found neither in "), 0U);
    EXPECT_NE(log().find(VANTRACE_INSTALLED_PROGRAMS), std::string::npos)
        << "where the programs are installed it looks for them";
    EXPECT_EQ(starter.readAllStandardError().toStdString(), log());
}

TEST_F(StarterTest, StartsItWhereNoLogCanBeWritten) {
    std::filesystem::permissions(program,
                                 std::filesystem::perms::owner_read | std::filesystem::perms::owner_exec);
    EXPECT_TRUE(starts()) << "a folder that can't be written";
    std::filesystem::permissions(program, std::filesystem::perms::owner_all);
    std::filesystem::remove(program / "station.log");
    // The same for a user whom permissions don't hold up.
    std::filesystem::create_symlink("/nowhere/at/all", program / "station.log");
    EXPECT_TRUE(starts()) << "a log that can't be made";
    std::filesystem::remove(program / "station.log");
    std::filesystem::create_directory(program / "station.log");
    EXPECT_TRUE(starts()) << "a log that is a folder";
}

}  // namespace
}  // namespace vantrace
