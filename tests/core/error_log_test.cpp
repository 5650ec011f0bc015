// The log, and failing by it: labels, steps and the bounds of tables.
#include "core/error_log.h"

#include <sys/stat.h>

#include "core/error_label.h"
#include "core/labels.h"
#include "core/program_state.h"
#include "core/version.h"
#include "tests/support/test_services.h"
#include "tests/support/testing.h"

namespace vantrace {
namespace {

TEST(ErrorLog, WritesOneLineForEachFailure) {
    TestServices test;
    test.clock.setUtc({2024, 3, 5, 23, 8, 9}, 60);
    LogError(test.services, "Overflow", labels::mapMakeannouncment);
    LogError(test.services, "two\r\nlines", labels::mainFormLoad);
    const std::string version =
        std::to_string(versionMajor) + "." + std::to_string(versionMinor) + std::to_string(versionRevision);
    EXPECT_EQ(test.folder.read("error.log"),
              version + " 2024-03-06 - 00:08:09 - Overflow - map  - Makeannouncment\r\n" + version +
                  " 2024-03-06 - 00:08:09 - two  lines - Main Form Load\r\n");
}

TEST(ErrorLog, IsDeletedWithTheLineThatMakesItTooLong) {
    TestServices test;
    LogError(test.services, "x", "L");
    const std::size_t lineBytes = test.folder.read("error.log").size();
    test.folder.write("error.log", std::string(200000 - lineBytes, '.'));
    LogError(test.services, "x", "L");
    EXPECT_EQ(test.folder.read("error.log").size(), 200000U) << "exactly the limit may stay";
    LogError(test.services, "x", "L");
    EXPECT_FALSE(test.folder.exists("error.log"));
    LogError(test.services, "x", "L");
    EXPECT_EQ(test.logLines().size(), 1U);
}

TEST(ErrorLog, DoesNoHarmWhereItCannotBeWritten) {
    TestServices test;
    ASSERT_EQ(mkfifo((test.folder.appPath() + "error.log").c_str(), 0600), 0);
    LogError(test.services, "x", "L");
    EXPECT_TRUE(std::filesystem::is_fifo(test.folder.path() / "error.log"));
    test.errorLog.setFolder(test.folder.appPath() + "none/");
    LogError(test.services, "x", "L");
    test.errorLog.setFolder("");
    LogError(test.services, "x", "L");
    EXPECT_FALSE(std::filesystem::exists("error.log")) << "without a folder nothing goes to the current one";
}

TEST(ErrorLabel, LogsAndGoesOn) {
    TestServices test;
    ErrorLabel label(test.services, labels::globalSatcalc);
    int done = 0;
    EXPECT_TRUE(label.step([&] { ++done; }));
    EXPECT_FALSE(label.step([&] {
        ++done;
        throw std::runtime_error("no such satellite");
    }));
    EXPECT_FALSE(label.quietStep([] { throw std::runtime_error("quiet"); }));
    EXPECT_EQ(done, 2);
    ASSERT_EQ(test.logLines().size(), 1U);
    EXPECT_TRUE(test.logLines()[0].ends_with(" - no such satellite - Global Satcalc"));
}

TEST(Table, AnIndexPastTheBoundIsAFailureOfItsRoutine) {
    TestServices test;
    ProgramState state;
    ErrorLabel label(test.services, labels::mapviewGsatroutine);
    EXPECT_TRUE(label.step([&] {
        state.Favourites[500].Name = "last";
        state.Locations[150].Name = "last";
        state.Groups[40].Name = "last";
        state.Favourites[0].Name = "entry 0 exists";
    }));
    EXPECT_EQ(state.Favourites[500].Name, "last");
    EXPECT_FALSE(label.step([&] { state.Favourites[501].Name = "beyond"; }));
    EXPECT_FALSE(label.step([&] { state.Locations[151].Name = "beyond"; }));
    EXPECT_FALSE(label.step([&] { state.Groups[41].Name = "beyond"; }));
    EXPECT_FALSE(label.step([&] { state.Favourites[-1].Name = "below"; }));
    ASSERT_EQ(test.logged("Mapview Gsatroutine"), 4);
    EXPECT_NE(test.logLines()[0].find("index 501 is outside 0 to 500"), std::string::npos);
}

}  // namespace
}  // namespace vantrace
