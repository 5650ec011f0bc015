#include "catalogue/element_files.h"

#include "core/date_time.h"
#include "core/labels.h"
#include "platform/file_error.h"
#include "tests/catalogue/catalogue_test.h"
#include "tests/support/testing.h"

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
    EXPECT_TRUE(fakes.dialogs.messages.empty());
    EXPECT_TRUE(fakes.logLines().empty());
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
    EXPECT_TRUE(fakes.dialogs.messages.empty());
    EXPECT_TRUE(fakes.logLines().empty());
    EXPECT_THROW(lineFoundAfter(state, "nothing.txt", -1), FileError);
}

TEST_F(FindFirstKepLineTest, LogsACountBeyond16Bits) {
    std::string text;
    for (int line = 0; line < 32770; ++line) {
        text += '\n';
    }
    EXPECT_EQ(findIn(text.substr(1) + line1 + "\nend\n"), 32767);
    EXPECT_EQ(findIn(text + line1 + "\nend\n"), 0);
    EXPECT_EQ(fakes.logged(labels::globalFindFirstKepLine), 1);
}

TEST_F(FindFirstKepLineTest, TheFileMayBeReplacedWhileItYields) {
    fakes.events.onYield = [&] { folder.write("stations.txt", ""); };
    EXPECT_EQ(findIn("x\ny\nz\n" + std::string(stationElements)), 2);
}

TEST(ElementAge, DayOfYearCountsMonthsAndLeapDays) {
    EXPECT_EQ(DayOfYear("01-01-2026"), 1);
    EXPECT_EQ(DayOfYear("02-28-2026"), 59);
    EXPECT_EQ(DayOfYear("03-01-2026"), 60);
    EXPECT_EQ(DayOfYear("12-31-2026"), 365);
    EXPECT_EQ(DayOfYear("02-29-2024"), 60);
    EXPECT_EQ(DayOfYear("03-01-2024"), 61);
    EXPECT_EQ(DayOfYear("12-31-2024"), 366);
    EXPECT_EQ(DayOfYear("12-31-2100"), 366) << "every fourth year is a leap year here";
    EXPECT_EQ(DayOfYear("13-05-2026"), 5);
}

TEST(ElementAge, DayOfYearAgreesWithTheCalendarOverFourYears) {
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
    EXPECT_EQ(elementEpochDay(line1WithEpoch("26128.50000000")), 128);
    EXPECT_EQ(elementEpochDay(line1WithEpoch("26128.59999999")), 128) << "only one decimal is looked at";
    EXPECT_EQ(elementEpochDay(line1WithEpoch("26128.60000000")), 129);
    EXPECT_EQ(elementEpochDay(line1WithEpoch("26129.50000000")), 130);
    EXPECT_EQ(elementEpochDay(line1WithEpoch("26  1.40000000")), 1);
    EXPECT_EQ(elementEpochYear(line1), 2026);
    EXPECT_EQ(elementEpochYear(line1WithEpoch(" 8128.50000000")), 2008);
}

TEST(ElementAge, LinesWithoutAnEpochFail) {
    EXPECT_THROW(elementEpochDay(""), std::invalid_argument);
    EXPECT_THROW(elementEpochDay("no point"), std::invalid_argument);
    EXPECT_THROW(elementEpochDay("1 25544U 98.67A   26128.5"), std::invalid_argument);
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

}  // namespace
}  // namespace vantrace
