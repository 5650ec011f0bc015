#include "core/texts.h"

#include "core/spoken_name.h"
#include "tests/support/testing.h"

namespace vantrace {
namespace {

TEST(GetDelimitedWord, CountsFromOneAndStartsAgainPastTheLast) {
    const std::vector<std::pair<const char*, Texts>> cases{{"one,two,three", {"one", "two", "three"}},
                                                           {"one,two", {"one", "two", "one", "two", "one"}},
                                                           {"alone", {"alone", "alone", "alone", "alone"}},
                                                           {"a,,b", {"a", "", "b"}},
                                                           {",a", {"", "a"}},
                                                           {"a,", {"a", "", "a"}},
                                                           {"", {"", "", ""}}};
    for (const auto& [text, words] : cases)
        for (std::size_t i = 0; i < words.size(); ++i)
            EXPECT_EQ(GetDelimitedWord(text, static_cast<int>(i) + 1, ","), words[i]) << text << ' ' << i;
    EXPECT_EQ(GetDelimitedWord("a, b", 2, ", "), "b") << "a delimiter of two signs";
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
    // A byte that belongs to no character is one by itself.
    EXPECT_EQ(FixedWidth("\x80\xA0\xBF", 2), "\x80\xA0");
    EXPECT_EQ(FixedWidth("\xC3\xA3\xA3\xC3", 4), "\xC3\xA3\xA3\xC3 ");
}

TEST(Texts, ThatArentUtf8AreOfWindows) {
    for (const std::string text : {"", "5 M\u00E4rz \u20AC", "\U0010FFFF\uD7FF\uE000\U00010000"}) {
        EXPECT_EQ(asUtf8(text), text);
    }
    EXPECT_EQ(asUtf8("5 M\xE4rz\xA0\x80\x9F\x81"), "5 M\u00E4rz\u00A0\u20AC\u0178\uFFFD");
    // Overlong, half of a pair, beyond the last, cut off.
    for (const std::string text : {"\xC0\xAF", "\xE0\x80\xAF", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xE2\x82",
                                   "\xF0\x9F\x98", "\xFF"}) {
        EXPECT_NE(asUtf8(text), text);
    }
}

TEST(Texts, ChangeTheCaseOfPlainLettersAndKnowOnlyTheBlankAsABlank) {
    EXPECT_EQ(upperCased("/World é1"), "/WORLD é1");
    EXPECT_EQ(lowerCased("AltWorld É"), "altworld É");
    EXPECT_TRUE(equalsIgnoringCase("AltWorld", "ALTworld"));
    EXPECT_FALSE(equalsIgnoringCase("Alt", "AltW"));
    EXPECT_EQ(replacedAll("1.234.5", ".", ","), "1,234,5");
    EXPECT_EQ(replacedAll("aaa", "aa", "a"), "aa") << "what was put in is not searched again";
    EXPECT_TRUE(HasBlank("a b"));
    EXPECT_FALSE(HasBlank("a\tb"));
    EXPECT_EQ(trimmed("  a b\t "), "a b\t");
    EXPECT_EQ(trimmed("   "), "");
}

TEST(SpokenName, SpeaksSomeNamesInFullAndOthersWithBlanksForHyphens) {
    const std::vector<std::pair<const char*, const char*>> cases{
        {"NOAA-20 (JPSS-1)", "NOAA 20 (JPSS 1)"},
        {"ISS (ZARYA)", "The International Space station"},
        {"MISSION", "The International Space station"},
        {"PCSAT (NO-44)", "P C SAT"},
        {"STARSHINE-3", "Starshiine 3"},
        {"iss hst", "iss hst"},
        {"", ""},
        // Of several that fit the later counts.
        {"STS-125 HST", "The Space shuttle"},
        {"HST ISS", "The International Space station"},
        {"PCSAT STARSHINE 2", "Starshiine 2"},
        // Names with hyphens in the table are never found, since hyphens go first.
        {"AO-40", "AO 40"},
        {"AO-13", "AO 13"}};
    for (const auto& [name, spoken] : cases) EXPECT_EQ(SpokenName(name), spoken) << name;
}

}  // namespace
}  // namespace vantrace
