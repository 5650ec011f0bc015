#include <sys/stat.h>

#include "catalogue/element_files.h"
#include "core/labels.h"
#include "tests/catalogue/catalogue_test.h"
#include "tests/support/testing.h"

namespace vantrace {
namespace {

class FixGPSKepsTest : public CatalogueTest {
  protected:
    std::string fixed(std::string_view content) {
        folder.write("gps-ops.txt", content);
        FixGPSKeps(state, services);
        return folder.read("gps-ops.txt");
    }
};

TEST_F(FixGPSKepsTest, MakesTheNamesShortAndKeepsTheElements) {
    const std::string before(gpsElements);
    const std::string after = fixed(before);
    EXPECT_EQ(after, "GPS PRN 22\r\n" + before.substr(26, 142) + "GPS PRN 16\r\n" + before.substr(194, 142));
    EXPECT_EQ(fixed(after), after) << "the second time nothing happens";
    EXPECT_EQ(folder.names(), Texts{"gps-ops.txt"});
}

TEST_F(FixGPSKepsTest, AFirstNameWithoutPrnLeavesTheFileAsItWas) {
    const std::string before = "GPS PRN 22\n1 x\n2 y\nGPS BIIR-8 (PRN 16)\n1 x\n2 y\n";
    EXPECT_EQ(fixed(before), before);
    const std::string later = "GPS BIIR-8 (PRN 16)\n1 x\n2 y\nGPS BIII\n1 x\n2 y\n";
    EXPECT_EQ(fixed(later), later);
}

TEST_F(FixGPSKepsTest, OtherLinesPassAndEveryLineEndsInCrLf) {
    EXPECT_EQ(fixed("NAVSTAR 43 (PRN 13)\n\nGPS BIIA-10 (PRN 32) spare\ntail  "),
              "NAVSTAR 43 (PRN 13)\r\n\r\nGPS PRN 32\r\ntail  \r\n");
    EXPECT_EQ(fixed(""), "");
}

TEST_F(FixGPSKepsTest, ANameWithoutAClosingBracketIsLoggedAndStays) {
    EXPECT_EQ(fixed("GPS A) (PRN 1\r\n1 x\r\nGPS B (PRN 2)\r\nGPS C (PRN"),
              "GPS A) (PRN 1\r\n1 x\r\nGPS PRN 2\r\nGPS C (PRN\r\n");
    EXPECT_EQ(fakes.logged(labels::mainFixGpsKeps), 1);
}

TEST_F(FixGPSKepsTest, TheNewFileHasTheRightsOfTheOld) {
    folder.write("gps-ops.txt", gpsElements);
    ASSERT_EQ(chmod((folder.path() / "gps-ops.txt").c_str(), 0600), 0);
    FixGPSKeps(state, services);
    struct stat status {};
    ASSERT_EQ(stat((folder.path() / "gps-ops.txt").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0600U);
}

TEST_F(FixGPSKepsTest, AHalfWrittenFileOfAnEarlierRunGoes) {
    folder.write("gps-ops.new", "half");
    fixed("GPS PRN 22\r\n");
    EXPECT_EQ(folder.names(), Texts{"gps-ops.txt"});
}

TEST_F(FixGPSKepsTest, DoesNothingWithoutTheFile) {
    FixGPSKeps(state, services);
    EXPECT_TRUE(folder.names().empty());
}

}  // namespace
}  // namespace vantrace
