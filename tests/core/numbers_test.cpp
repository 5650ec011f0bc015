#include "core/numbers.h"

#include <locale.h>

#include "tests/support/testing.h"

namespace vantrace {
namespace {

constexpr double infinite = std::numeric_limits<double>::infinity();
const double noNumber = std::numeric_limits<double>::quiet_NaN();

struct PictureCase {
    double value;
    const char* picture;
    const char* text;
};

TEST(FormatNumber, FollowsThePicture) {
    for (const PictureCase& test : {
             PictureCase{0.5, "0.00", "0.50"},
             {0, "0.00", "0.00"},
             {-3.14159, "0.00", "-3.14"},
             {437.8, "0.0000", "437.8000"},
             {0.5, "#.0", ".5"},
             {-0.5, "#.0", "-.5"},
             {0, "#.0", ".0"},
             {12.34, "#.0", "12.3"},
             {1234.5, "###,0.00", "1,234.50"},
             {1234567.891, "###,0.00", "1,234,567.89"},
             {999.995, "###,0.00", "1,000.00"},
             {7, "###,0.00", "7.00"},
             {0, "###,0.00", "0.00"},
             {1234.5, "000,000.0", "001,234.5"},
             {-35786.04, "000,000.0", "-035,786.0"},
             {1234567.8, "000,000.0", "1,234,567.8"},
             {7, "00", "07"},
             {123, "00", "123"},
             {-5, "00", "-05"},
             {9.5, "000", "010"},
             {99.5, "00", "100"},
             {-33.5, "000.0000", "-033.5000"},
             {2.5, "0.##", "2.5"},
             {2, "0.0#", "2.0"},
             {1e20, "0", "100000000000000000000"},
             {1e-20, "0.00", "0.00"},
         }) {
        EXPECT_EQ(formatNumber(test.value, test.picture), test.text) << test.value << " by " << test.picture;
    }
}

TEST(FormatNumber, RoundsHalvesOfTheWrittenNumberAwayFromZero) {
    // 2.675 and 1.005 lie below their halves as doubles; what counts is the number as it is written.
    for (const PictureCase& test : {PictureCase{0.5, "0", "1"},
                                    {1.5, "0", "2"},
                                    {2.5, "0", "3"},
                                    {-2.5, "0", "-3"},
                                    {2.675, "0.00", "2.68"},
                                    {1.005, "0.00", "1.01"},
                                    {0.05, "0.0", "0.1"},
                                    {0.04999, "0.0", "0.0"},
                                    {9.9996, "0.000", "10.000"},
                                    {0.999, "0.0", "1.0"}}) {
        EXPECT_EQ(formatNumber(test.value, test.picture), test.text) << test.value;
    }
}

TEST(FormatNumber, WhatRoundsToZeroHasNoSign) {
    EXPECT_EQ(formatNumber(-0.001, "0.00"), "0.00");
    EXPECT_EQ(formatNumber(-0.0, "#.0"), ".0");
    EXPECT_EQ(formatNumber(-0.4, "00"), "00");
}

TEST(FormatNumber, TakesTheMarksOfTheMachine) {
    EXPECT_EQ(formatNumber(1234.5, "###,0.00", ','), "1.234,50");
    EXPECT_EQ(formatNumber(0.5, "#.0", ','), ",5");
    EXPECT_EQ(numberText(-0.25, ','), "-0,25");
}

TEST(FormatNumber, RefusesWhatIsNoNumber) {
    EXPECT_THROW(formatNumber(infinite, "0.00"), std::range_error);
    EXPECT_THROW(formatNumber(noNumber, "0.00"), std::range_error);
    EXPECT_THROW(numberText(noNumber), std::range_error);
}

TEST(NumberText, IsTheShortestOfFifteenDigits) {
    EXPECT_EQ(numberText(0), "0");
    EXPECT_EQ(numberText(-0.0), "0");
    EXPECT_EQ(numberText(0.1 + 0.2), "0.3");
    EXPECT_EQ(numberText(-33), "-33");
    EXPECT_EQ(numberText(1200), "1200");
    EXPECT_EQ(numberText(51.4779), "51.4779");
    EXPECT_EQ(numberText(0.00001), "0.00001");
    EXPECT_EQ(numberText(123456789012345), "123456789012345");
    EXPECT_EQ(numberText(1e15), "1E+15");
    EXPECT_EQ(numberText(-1.5e-16), "-1.5E-16");
    EXPECT_EQ(numberTextWithoutLeadingZero(0.5), ".5");
    EXPECT_EQ(numberTextWithoutLeadingZero(-0.5), "-.5");
    EXPECT_EQ(numberTextWithoutLeadingZero(0), "0");
    EXPECT_EQ(numberTextWithoutLeadingZero(-10.25), "-10.25");
}

TEST(NumberValue, ReadsTheNumberThatATextStartsWith) {
    EXPECT_EQ(numberValue("  12.5 km"), 12.5);
    EXPECT_EQ(numberValue("-.5x"), -0.5);
    EXPECT_EQ(numberValue("+3"), 3);
    EXPECT_EQ(numberValue("1,234"), 1);
    EXPECT_EQ(numberValue("12:30"), 12);
    EXPECT_EQ(numberValue("1e3"), 1000);
    EXPECT_EQ(numberValue("1e"), 1);
    EXPECT_EQ(numberValue("5."), 5);
    for (const char* const none : {"", " ", "x1", ".", "-", "+-1", "e5", "nan", "inf", "-inf"}) {
        EXPECT_EQ(numberValue(none), 0) << none;
    }
    EXPECT_EQ(numberValue("0x10"), 0);
    EXPECT_EQ(numberValue("1e999"), std::numeric_limits<double>::max());
    EXPECT_EQ(numberValue("-1e999"), std::numeric_limits<double>::lowest());
    EXPECT_EQ(numberValue("1e-999"), 0);
    EXPECT_EQ(numberValue(std::string(1000, '9')), std::numeric_limits<double>::max());
}

TEST(ToDouble, TakesAWholeNumberAndNothingElse) {
    EXPECT_EQ(toDouble(" -12.5 "), -12.5);
    EXPECT_EQ(toDouble("1,234,567.5"), 1234567.5);
    EXPECT_EQ(toDouble("12,5", ','), 12.5);
    EXPECT_EQ(toDouble("1.234,5", ','), 1234.5);
    EXPECT_EQ(toDouble("1e3"), 1000);
    for (const char* const bad : {"", " ", "12.5 km", "1.2.3", "12,5", "1,2345", ",123", "1.5,000", "--1",
                                  "1e999", "nan", "1 2", "0x1"}) {
        EXPECT_EQ(toDouble(bad), std::nullopt) << bad;
    }
}

TEST(ToDouble, TellsACommaMachine) {
    MachineFormat format;
    EXPECT_FALSE(readsCommaAsDecimalMark(format));
    format.decimalMark = ',';
    EXPECT_TRUE(readsCommaAsDecimalMark(format));
}

TEST(ToInteger, RoundsHalvesToEvenWithinItsBits) {
    EXPECT_EQ(toInteger16(0.5), 0);
    EXPECT_EQ(toInteger16(1.5), 2);
    EXPECT_EQ(toInteger16(2.5), 2);
    EXPECT_EQ(toInteger16(-2.5), -2);
    EXPECT_EQ(toInteger16(128.6), 129);
    EXPECT_EQ(toInteger16(32767.4), 32767);
    EXPECT_EQ(toInteger16(-32768.5), -32768);
    EXPECT_EQ(toInteger32(40000), 40000);
    for (const double beyond : {32767.5, -32768.6, 1e300, infinite, noNumber}) {
        EXPECT_THROW(toInteger16(beyond), std::range_error) << beyond;
    }
    EXPECT_THROW(toInteger32(2147483647.5), std::range_error);
}

}  // namespace
}  // namespace vantrace
