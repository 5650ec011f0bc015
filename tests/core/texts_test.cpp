#include "core/texts.h"

#include <gtest/gtest.h>

namespace vantrace {
namespace {

TEST(GetDelimitedWord, CountsWordsFromOne) {
    EXPECT_EQ(GetDelimitedWord("one,two,three", 1, ","), "one");
    EXPECT_EQ(GetDelimitedWord("one,two,three", 2, ","), "two");
    EXPECT_EQ(GetDelimitedWord("one,two,three", 3, ","), "three");
    EXPECT_EQ(GetDelimitedWord("alone", 1, ","), "alone");
    EXPECT_EQ(GetDelimitedWord("", 1, ","), "");
    EXPECT_EQ(GetDelimitedWord("a, b", 2, ", "), "b") << "a delimiter of two signs";
}

TEST(GetDelimitedWord, GivesEmptyWordsBetweenNeighboursAndAtTheEnds) {
    EXPECT_EQ(GetDelimitedWord("a,,b", 2, ","), "");
    EXPECT_EQ(GetDelimitedWord("a,,b", 3, ","), "b");
    EXPECT_EQ(GetDelimitedWord(",a", 1, ","), "");
    EXPECT_EQ(GetDelimitedWord("a,", 2, ","), "");
}

TEST(GetDelimitedWord, StartsAgainPastTheLastDelimiter) {
    EXPECT_EQ(GetDelimitedWord("one,two", 3, ","), "one");
    EXPECT_EQ(GetDelimitedWord("one,two", 4, ","), "two");
    EXPECT_EQ(GetDelimitedWord("one,two", 5, ","), "one");
    EXPECT_EQ(GetDelimitedWord("alone", 4, ","), "alone");
    EXPECT_EQ(GetDelimitedWord("a,", 3, ","), "a");
    EXPECT_EQ(GetDelimitedWord("", 9, ","), "");
}

TEST(Texts, TellDaysAndTimes) {
    EXPECT_EQ(MonthDayText(5, 3), "05 MAR");
    EXPECT_EQ(MonthDayText(31, 12), "31 DEC");
    EXPECT_EQ(MonthDayText(5, 0), "05 ");
    EXPECT_EQ(MonthDayText(5, 13), "05 ");
    EXPECT_EQ(TimeText(7, 8, 9), "07:08:09");
    EXPECT_EQ(TimeText(23, 59, 75), "00:00:15");
    EXPECT_EQ(TimeText(0, 0, -1), "23:59:59");
}

TEST(FixedWidth, CutsAndFillsByCharacters) {
    EXPECT_EQ(FixedWidth("SATELLITE OF 16C", 16), "SATELLITE OF 16C");
    EXPECT_EQ(FixedWidth("SATELLITE OF 20 CHAR", 16), "SATELLITE OF 20 ");
    EXPECT_EQ(FixedWidth("ISS", 5), "ISS  ");
    EXPECT_EQ(FixedWidth("", 2), "  ");
    EXPECT_EQ(FixedWidth("ISS", 0), "");
    EXPECT_EQ(FixedWidth("S\xC3\xA3o", 4), "S\xC3\xA3o ");
    EXPECT_EQ(FixedWidth("\xC3\xA3\xC3\xA3\xC3\xA3", 2), "\xC3\xA3\xC3\xA3");
}

TEST(Texts, KnowOnlyTheBlankAsABlank) {
    EXPECT_TRUE(HasBlank("a b"));
    EXPECT_FALSE(HasBlank("a\tb"));
    EXPECT_EQ(trimmed("  a b\t "), "a b\t");
    EXPECT_EQ(trimmed("   "), "");
}

TEST(Texts, ChangeTheCaseOfPlainLettersOnly) {
    EXPECT_EQ(upperCased("/World é1"), "/WORLD é1");
    EXPECT_EQ(lowerCased("AltWorld É"), "altworld É");
    EXPECT_TRUE(equalsIgnoringCase("AltWorld", "ALTworld"));
    EXPECT_FALSE(equalsIgnoringCase("Alt", "AltW"));
    EXPECT_EQ(replacedAll("1.234.5", ".", ","), "1,234,5");
    EXPECT_EQ(replacedAll("aaa", "aa", "a"), "aa") << "what was put in is not searched again";
}

}  // namespace
}  // namespace vantrace
