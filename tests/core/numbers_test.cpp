#include "core/numbers.h"

#include <locale.h>

#include "tests/support/testing.h"

namespace vantrace {
namespace {

constexpr double infinite = std::numeric_limits<double>::infinity();
const double noNumber = std::numeric_limits<double>::quiet_NaN();

using Written = std::vector<std::pair<double, const char*>>;

TEST(FormatNumber, FollowsThePictureAndWhatRoundsToZeroHasNoSign) {
    const std::vector<std::pair<const char*, Written>> pictures{
        {"0.00", {{0.5, "0.50"}, {0, "0.00"}, {-3.14159, "-3.14"}, {1e-20, "0.00"}, {-0.001, "0.00"}}},
        {"#.0", {{0.5, ".5"}, {-0.5, "-.5"}, {0, ".0"}, {-0.0, ".0"}, {12.34, "12.3"}}},
        {"###,0.00",
         {{1234.5, "1,234.50"},
          {1234567.891, "1,234,567.89"},
          {999.995, "1,000.00"},
          {7, "7.00"},
          {0, "0.00"}}},
        {"000,000.0", {{1234.5, "001,234.5"}, {-35786.04, "-035,786.0"}, {1234567.8, "1,234,567.8"}}},
        {"00", {{7, "07"}, {123, "123"}, {-5, "-05"}, {99.5, "100"}, {-0.4, "00"}}},
        {"000", {{9.5, "010"}}},
        {"0.0000", {{437.8, "437.8000"}}},
        {"000.0000", {{-33.5, "-033.5000"}}},
        {"0.##", {{2.5, "2.5"}}},
        {"0.0#", {{2, "2.0"}}},
        {"0", {{1e20, "100000000000000000000"}}}};
    for (const auto& [picture, cases] : pictures)
        for (const auto& [value, text] : cases)
            EXPECT_EQ(formatNumber(value, picture), text) << value << " by " << picture;
}

TEST(FormatNumber, RoundsHalvesOfTheWrittenNumberAwayFromZero) {
    // 2.675 and 1.005 lie below their halves as doubles; what counts is the number as it is written.
    const std::vector<std::pair<const char*, Written>> pictures{
        {"0", {{0.5, "1"}, {1.5, "2"}, {2.5, "3"}, {-2.5, "-3"}}},
        {"0.0", {{0.05, "0.1"}, {0.04999, "0.0"}, {0.999, "1.0"}}},
        {"0.00", {{2.675, "2.68"}, {1.005, "1.01"}}},
        {"0.000", {{9.9996, "10.000"}}}};
    for (const auto& [picture, cases] : pictures)
        for (const auto& [value, text] : cases) EXPECT_EQ(formatNumber(value, picture), text) << value;
}

TEST(FormatNumber, TakesTheMarksOfTheMachineAndRefusesWhatIsNoNumber) {
    EXPECT_EQ(formatNumber(1234.5, "###,0.00", ','), "1.234,50");
    EXPECT_EQ(formatNumber(0.5, "#.0", ','), ",5");
    EXPECT_EQ(numberText(-0.25, ','), "-0,25");
    EXPECT_THROW(formatNumber(infinite, "0.00"), std::range_error);
    EXPECT_THROW(formatNumber(noNumber, "0.00"), std::range_error);
    EXPECT_THROW(numberText(noNumber), std::range_error);
}

TEST(NumberText, IsTheShortestOfFifteenDigits) {
    const std::vector<std::pair<double, const char*>> cases{
        {0, "0"},        {-0.0, "0"},           {0.1 + 0.2, "0.3"},   {-33, "-33"},
        {1200, "1200"},  {51.4779, "51.4779"},  {0.00001, "0.00001"}, {123456789012345, "123456789012345"},
        {1e15, "1E+15"}, {-1.5e-16, "-1.5E-16"}};
    for (const auto& [value, text] : cases) EXPECT_EQ(numberText(value), text);
    EXPECT_EQ(numberTextWithoutLeadingZero(0.5), ".5");
    EXPECT_EQ(numberTextWithoutLeadingZero(-0.5), "-.5");
    EXPECT_EQ(numberTextWithoutLeadingZero(0), "0");
    EXPECT_EQ(numberTextWithoutLeadingZero(-10.25), "-10.25");
}

TEST(NumberValue, ReadsTheNumberThatATextStartsWith) {
    constexpr double most = std::numeric_limits<double>::max();
    const std::map<double, Texts> cases{
        {12.5, {"  12.5 km"}},
        {-0.5, {"-.5x"}},
        {3, {"+3"}},
        {5, {"5."}},
        {1, {"1,234", "1e"}},
        {12, {"12:30"}},
        {1000, {"1e3"}},
        {-most, {"-1e999"}},
        {most, {"1e999", std::string(1000, '9')}},
        {0, {"0x10", "1e-999", "", " ", "x1", ".", "-", "+-1", "e5", "nan", "inf", "-inf"}}};
    for (const auto& [value, texts] : cases)
        for (const std::string& text : texts) EXPECT_EQ(numberValue(text), value) << text;
}

TEST(ToDouble, TakesAWholeNumberAndNothingElseByTheMarksOfTheMachine) {
    EXPECT_EQ(toDouble(" -12.5 "), -12.5);
    EXPECT_EQ(toDouble("1,234,567.5"), 1234567.5);
    EXPECT_EQ(toDouble("12,5", ','), 12.5);
    EXPECT_EQ(toDouble("1.234,5", ','), 1234.5);
    EXPECT_EQ(toDouble("1e3"), 1000);
    for (const char* const bad : {"", " ", "12.5 km", "1.2.3", "12,5", "1,2345", ",123", "1.5,000", "--1",
                                  "1e999", "nan", "1 2", "0x1"}) {
        EXPECT_EQ(toDouble(bad), std::nullopt) << bad;
    }
    MachineFormat format;
    EXPECT_FALSE(readsCommaAsDecimalMark(format));
    format.decimalMark = ',';
    EXPECT_TRUE(readsCommaAsDecimalMark(format));
}

TEST(ToInteger, RoundsHalvesToEvenWithinItsBits) {
    const std::vector<std::pair<double, int>> cases{
        {0.5, 0}, {1.5, 2}, {2.5, 2}, {-2.5, -2}, {128.6, 129}, {32767.4, 32767}, {-32768.5, -32768}};
    for (const auto& [value, whole] : cases) EXPECT_EQ(toInteger16(value), whole) << value;
    EXPECT_EQ(toInteger32(40000), 40000);
    for (const double beyond : {32767.5, -32768.6, 1e300, infinite, noNumber}) {
        EXPECT_THROW(toInteger16(beyond), std::range_error) << beyond;
    }
    EXPECT_THROW(toInteger32(2147483647.5), std::range_error);
}

}  // namespace
}  // namespace vantrace
