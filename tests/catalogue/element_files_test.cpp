#include "catalogue/element_files.h"

#include "core/labels.h"
#include "platform/file_error.h"
#include "tests/catalogue/catalogue_test.h"

namespace vantrace {
namespace {

const std::string line1(stationElements.substr(26, 69));

class FindFirstKepLineTest : public CatalogueTest {
  protected:
    std::int16_t findIn(std::string_view content) {
        folder.write("stations.txt", content);
        return FindFirstKepLine(state, services, "stations.txt");
    }
    const std::string problem =
        "There is a problem with stations.txt, Can't find 2 Line Keplerian elements in the file";
};

TEST_F(FindFirstKepLineTest, LeadsToTheFirstLine1) {
    EXPECT_EQ(findIn(stationElements), -1);
    EXPECT_EQ(fakes.events.yields, 2);
    EXPECT_EQ(lineFoundAfter(state, "stations.txt", -1), line1);

    EXPECT_EQ(findIn("<html>\r\n\r\nnews\r\n" + std::string(stationElements)), 2);
    EXPECT_EQ(lineFoundAfter(state, "stations.txt", 2), line1);
    EXPECT_TRUE(fakes.dialogs.messages.empty() && fakes.logLines().empty());
}

TEST_F(FindFirstKepLineTest, PassesLinesWithoutAnEpoch) {
    const std::string blankEpoch = "1 25544U 98067A                   .00008864  00000+0  16558-3 0  9995\n";
    EXPECT_EQ(
        findIn("ISS\n" + blankEpoch + "1 short\n1 25544U 98067A   00000.00000000\nISS\n" + line1 + "\n2\n"),
        3);
    EXPECT_TRUE(fakes.dialogs.messages.empty());
}

TEST_F(FindFirstKepLineTest, WithoutElementsTellsTheUserAndGives0) {
    EXPECT_EQ(findIn("ISS (ZARYA)\r\n"), 0);
    EXPECT_EQ(fakes.dialogs.messages, std::vector{problem});
    EXPECT_EQ(findIn(""), 0);
    EXPECT_EQ(fakes.dialogs.messages, (std::vector{problem, problem}));
}

TEST_F(FindFirstKepLineTest, OnTheLastLineTellsTheUserAndCountsAllTheSame) {
    EXPECT_EQ(findIn("a\nb\nISS\n" + line1 + "\r\n"), 1);
    EXPECT_EQ(fakes.dialogs.messages, std::vector{problem});
    EXPECT_EQ(findIn("a\nb\nISS\n" + line1 + "\n\n"), 1);
    EXPECT_EQ(fakes.dialogs.messages.size(), 1U) << "a blank line behind it makes it no last line";
}

TEST_F(FindFirstKepLineTest, WithoutAFileGivesMinus1AndSaysNothing) {
    EXPECT_EQ(FindFirstKepLine(state, services, "nothing.txt"), -1);
    EXPECT_TRUE(fakes.dialogs.messages.empty() && fakes.logLines().empty());
    EXPECT_THROW(lineFoundAfter(state, "nothing.txt", -1), FileError);
}

TEST_F(FindFirstKepLineTest, LogsACountBeyond16Bits) {
    const std::string text(32770, '\n');
    EXPECT_EQ(findIn(text.substr(1) + line1 + "\nend\n"), 32767);
    EXPECT_EQ(findIn(text + line1 + "\nend\n"), 0);
    EXPECT_EQ(fakes.logged(labels::globalFindFirstKepLine), 1);
}

TEST_F(FindFirstKepLineTest, TheFileMayBeReplacedWhileItYields) {
    fakes.events.onYield = [&] { folder.write("stations.txt", ""); };
    EXPECT_EQ(findIn("x\ny\nz\n" + std::string(stationElements)), 2);
}

TEST(ElementAge, DayOfYearAgreesWithTheCalendarOverFourYears) {
    EXPECT_EQ(DayOfYear("12-31-2100"), 366) << "every fourth year is a leap year here";
    EXPECT_EQ(DayOfYear("13-05-2026"), 5);
    for (int year = 2024; year < 2028; ++year) {
        const double newYear = packDateTime({year, 1, 1, 0, 0, 0});
        for (double day = newYear; day < packDateTime({year + 1, 1, 1, 0, 0, 0}); ++day) {
            ASSERT_EQ(DayOfYear(monthDayYearText(day)), day - newYear + 1) << monthDayYearText(day);
        }
    }
}

std::string line1WithEpoch(std::string_view epoch) {
    return "1 25544U 98067A   " + std::string(epoch) + "  .00008864";
}

TEST(ElementAge, EpochIsRoundedByItsFirstDecimalHalvesToEven) {
    for (const auto& [epoch, day] : {std::pair("26128.50000000", 128),
                                     {"26128.59999999", 128},  // only one decimal is looked at
                                     {"26128.60000000", 129},
                                     {"26129.50000000", 130},
                                     {"26  1.40000000", 1}}) {
        EXPECT_EQ(elementEpochDay(line1WithEpoch(epoch)), day) << epoch;
    }
    EXPECT_EQ(elementEpochYear(line1), 2026);
    EXPECT_EQ(elementEpochYear(line1WithEpoch(" 8128.50000000")), 2008);
}

TEST(ElementAge, LinesWithoutAnEpochFail) {
    for (const char* line : {"", "no point", "1 25544U 98.67A   26128.5"}) {
        EXPECT_THROW(elementEpochDay(line), std::invalid_argument) << line;
    }
    EXPECT_EQ(elementEpochDay("1 25544U 98067A   ."), 0) << "no characters in front of the point";
    EXPECT_THROW(elementEpochDay(line1WithEpoch("2699999999999999.5")), std::range_error);
    EXPECT_THROW(elementEpochYear("1 25544U 98067A"), std::invalid_argument);
    EXPECT_THROW(elementEpochYear(line1WithEpoch("x6128.5")), std::invalid_argument);
}

TEST(ElementFileName, IsWhatFollowsTheLastSlash) {
    EXPECT_EQ(elementFileName("host.example/NORAD/elements/weather.txt"), "weather.txt");
    EXPECT_EQ(elementFileName("byhand.txt"), "byhand.txt");
    EXPECT_EQ(elementFileName("host.example/"), "");
}

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
    folder.write("gps-ops.new", "half, by an earlier run");
    fixed(after);
    EXPECT_EQ(folder.names(), (Texts{"elements", "gps-ops.txt"}));
    std::filesystem::remove(folder.path() / "gps-ops.txt");
    FixGPSKeps(state, services);
    EXPECT_EQ(folder.names(), Texts{"elements"}) << "nothing is done without the file";
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

}  // namespace
}  // namespace vantrace
