#include "internet/omm/element_columns.h"

#include "internet/omm/epoch_columns.h"
#include "orbit/elements/element_reader.h"
#include "tests/support/testing.h"

namespace vantrace {
namespace {

struct TextCase {
    const char* given;
    const char* wanted;  ///< "none" where there is nothing
};

std::string exponentOf(const char* text) {
    const auto number = readDecimal(text);
    return number ? exponentColumns(*number).value_or("none") : "no number";
}

TEST(ElementColumnsTest, ExponentsCarryShrinkAndEnd) {
    const TextCase cases[] = {
        {"0", " 00000+0"},
        {"-0.000", " 00000+0"},
        {".7969016E-4", " 79690-4"},
        {"7.969016e-05", " 79690-4"},
        {"-.22483E-4", "-22483-4"},
        {"0.00017030629", " 17031-3"},
        {".99999949E-3", " 10000-2"},
        {".9999950E-3", " 10000-2"},
        {".999994999999E-3", " 99999-3"},
        {"-.999995", "-10000+1"},
        {"0.5", " 50000+0"},
        {"1.5", " 15000+1"},
        {"999990000", " 99999+9"},
        {"999995000", "none"},
        {"1e999", "none"},
        // Below the smallest power the digits go one by one.
        {"1e-10", " 10000-9"},
        {"1.23456e-12", " 00123-9"},
        {"4.9e-15", " 00000+0"},
        {"-5e-15", "-00001-9"},
        {"1e-999", " 00000+0"},
    };
    for (const auto& [given, wanted] : cases) EXPECT_EQ(exponentOf(given), wanted) << given;
}

TEST(ElementColumnsTest, WhatIsNoPlainDecimalIsNoNumber) {
    for (const char* given : {"", " ", "NaN", "inf", "1e", "1e+", "e5", ".", "+", "1.2.3", "0x10", "1,5",
                              "1 2", "--1", "1e99999", "5 rev"}) {
        EXPECT_FALSE(readDecimal(given)) << given;
    }
    EXPECT_FALSE(readDecimal(std::string(101, '1')));
}

TEST(ElementColumnsTest, DerivativesHaveEightPlacesAndStayBelowOne) {
    const TextCase cases[] = {
        {"0", " .00000000"},           {".3997E-4", " .00003997"}, {"-1.6E-7", "-.00000016"},
        {"-.23408E-1", "-.02340800"},  {"1.5e-8", " .00000002"},   {"-4e-9", " .00000000"},
        {"0.999999994", " .99999999"}, {"0.999999995", "none"},    {"-1", "none"}};
    for (const auto& [given, wanted] : cases) {
        EXPECT_EQ(derivativeColumns(*readDecimal(given)).value_or("none"), wanted) << given;
    }
}

TEST(ElementColumnsTest, CatalogueNumbersReachTo339999AndReadBack) {
    const std::pair<std::int64_t, const char*> cases[] = {
        {0, "00000"},      {5, "00005"},      {99999, "99999"},  {100000, "A0000"},
        {100057, "A0057"}, {179999, "H9999"}, {180000, "J0000"}, {229999, "N9999"},
        {230000, "P0000"}, {339999, "Z9999"}, {340000, "none"},  {799501648, "none"}};
    for (const auto& [number, wanted] : cases) {
        const std::string columns = catalogNumberColumns(number).value_or("none");
        EXPECT_EQ(columns, wanted) << number;
        if (columns == "none") continue;
        EXPECT_EQ(parseCatalogNumber(columns), number);
    }
}

TEST(ElementColumnsTest, DesignatorsThatAreNoneAreBlank) {
    const TextCase cases[] = {{"1998-067A", "98067A  "},    {"2011-037PF", "11037PF "},
                              {"1999-025AXY", "99025AXY"},  {"", "        "},
                              {"TBA", "        "},          {"1998-067", "        "},
                              {"1998-067ABCD", "        "}, {"1998-67A", "        "},
                              {"1998-067a", "        "},    {"98067A", "        "}};
    for (const auto& [given, wanted] : cases) EXPECT_EQ(designatorColumns(given), wanted) << given;
}

TEST(ElementColumnsTest, EpochsAreRoundedIntoTheNextDayAndYear) {
    const TextCase cases[] = {
        {"2026-08-06T01:17:37.872384", "26218.05391056"},
        {"1998-11-20T06:49:59.999808", "98324.28472222"},
        {"2026-09-29T09:43:41.999981", "26272.40534722"},
        {"2026-01-01T00:00:00", "26001.00000000"},
        {"2026-218T01:17:37.872384Z", "26218.05391056"},
        {"2026-08-06 01:17:37.872384", "26218.05391056"},
        // One unit is 864 microseconds.
        {"2026-01-01T00:00:00.000431", "26001.00000000"},
        {"2026-01-01T00:00:00.000432", "26001.00000001"},
        {"2026-01-01T00:00:00.000431999999999", "26001.00000000"},
        {"2026-12-31T23:59:59.999567", "26365.99999999"},
        {"2026-12-31T23:59:59.999568", "27001.00000000"},
        {"2024-12-31T23:59:59.999567", "24366.99999999"},
        {"2024-12-31T23:59:59.999999", "25001.00000000"},
        {"2024-366T12:00:00", "24366.50000000"},
        {"2024-02-28T23:59:59.9999", "24060.00000000"},
        {"2016-12-31T23:59:60.5", "17001.00000579"},
        {"1957-10-04T19:26:24.0", "57277.81000000"},
        {"2056-12-31T23:59:59.999", "56366.99999999"},
    };
    for (const auto& [given, wanted] : cases)
        EXPECT_EQ(epochColumns(given).value_or("none"), wanted) << given;
}

TEST(ElementColumnsTest, WhatIsNoTimeOrOutsideTwoDigitsIsNoEpoch) {
    for (const char* given :
         {"", "2026", "2026-08-06", "2026-13-06T00:00:00", "2026-02-29T00:00:00", "2026-366T00:00:00",
          "2026-000T00:00:00", "2026-08-06T24:00:00", "2026-08-06T00:60:00", "2026-08-06T00:00:61",
          "2026-08-06T00:00", "2026-08-06T00:00:00+02:00", "2026-08-06T00:00:00.5x", "1956-12-31T00:00:00",
          "2057-01-01T00:00:00", "2056-12-31T23:59:59.9999", "26-08-06T00:00:00", "NaN"}) {
        EXPECT_FALSE(epochColumns(given)) << given;
    }
}

}  // namespace
}  // namespace vantrace
