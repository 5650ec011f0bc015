#include "orbit/elements/element_reader.h"

#include "tests/orbit/element_texts.h"
#include "tests/support/testing.h"

namespace vantrace {
namespace {

// As published by CelesTrak.
const std::string name1 = "ISS (ZARYA)";
const std::string line1 = "1 25544U 98067A   26233.53315667  .00008864  00000+0  16558-3 0  9995";
const std::string line2 = "2 25544  51.6331 336.6713 0007673  69.9303 290.2511 15.49551867581884";

Texts namesIn(std::string_view text) {
    Texts names;
    for (const ElementSet& set : readAll(text).sets) names.push_back(set.name);
    return names;
}

TEST(ElementReader, ReadsEveryFieldInTheEnginesUnits) {
    const ReadElements read = readAll(name1 + "\n" + line1 + "\n" + line2 + "\n");
    ASSERT_EQ(read.sets.size(), 1U);
    const ElementSet& set = read.sets.front();
    EXPECT_EQ(set.name, "ISS (ZARYA)");
    EXPECT_EQ(set.catalogNumber, 25544);
    EXPECT_EQ(isoText(set.epoch, 3), "2026-08-21T12:47:44.736Z");
    EXPECT_DOUBLE_EQ(set.bStar, 0.16558e-3);
    EXPECT_DOUBLE_EQ(set.inclinationRad, 51.6331 * pi / 180.0);
    EXPECT_DOUBLE_EQ(set.rightAscensionRad, 336.6713 * pi / 180.0);
    EXPECT_DOUBLE_EQ(set.eccentricity, 0.0007673);
    EXPECT_DOUBLE_EQ(set.argumentOfPerigeeRad, 69.9303 * pi / 180.0);
    EXPECT_DOUBLE_EQ(set.meanAnomalyRad, 290.2511 * pi / 180.0);
    EXPECT_DOUBLE_EQ(set.meanMotionRadPerMin, 15.49551867 * 2.0 * pi / 1440.0);
    EXPECT_EQ(set.revolutionNumber, 58188);
    EXPECT_TRUE(read.remarks.empty());
}

TEST(ElementReader, TakesEveryFormOfLinesAndLineEnds) {
    const std::string lines = line1 + "\n" + line2;
    const struct {
        std::string what;
        std::string text;
    } table[] = {
        {"LF", name1 + "\n" + lines + "\n"},
        {"CR LF", name1 + "\r\n" + line1 + "\r\n" + line2 + "\r\n"},
        {"mixed ends", name1 + "\r\n" + lines + "\r\n"},
        {"no last end", name1 + "\n" + lines},
        {"trailing blanks", name1 + "             \r\n" + line1 + "  \r\n" + line2 + "   \r\n"},
        {"leading 0", "0 " + name1 + "\n" + lines},
        {"leading blanks", "   " + name1 + "\n" + lines},
        {"0 and blanks", "0   " + name1 + "\n" + lines},
        {"UTF-8 mark", "\xEF\xBB\xBF" + name1 + "\n" + lines},
        {"comments", "# made today\n" + name1 + "\n# line 1\n" + line1 + "\n#\n" + line2 + "\n# end\n"},
        {"blank lines", "\n\n" + name1 + "\n\n" + line1 + "\n  \n" + line2 + "\n\n"},
        {"text behind column 69", name1 + "\n" + line1 + "\n" + line2 + "  0.0  1440.0  5.0\n"},
    };
    for (const auto& row : table) {
        EXPECT_EQ(namesIn(row.text), Texts{name1}) << row.what;
        EXPECT_TRUE(readAll(row.text).remarks.empty()) << row.what;
    }
}

TEST(ElementReader, CallsASetWithoutANameByItsNumber) {
    EXPECT_EQ(namesIn(line1 + "\n" + line2 + "\n"), Texts{"25544"});
    const std::string alpha1 = withColumns(line1, 3, "B0001");
    const std::string alpha2 = withColumns(line2, 3, "B0001");
    EXPECT_EQ(namesIn(alpha1 + "\n" + alpha2), Texts{"110001"});
    // A lonely "0 " is no name.
    EXPECT_EQ(namesIn("0\n" + line1 + "\n" + line2 + "\n"), Texts{"25544"});
    EXPECT_EQ(namesIn("0   \r\n" + line1 + "\n" + line2 + "\n"), Texts{"25544"});
    // The name of one set is not carried over to the next.
    const std::string lines = "\n" + line1 + "\n" + line2 + "\n";
    EXPECT_EQ(namesIn("FIRST" + lines + lines), (Texts{"FIRST", "25544"}));
}

TEST(ElementReader, KeepsNamesThatLookLikeTheStartOfALine) {
    for (const std::string name : {"1 HOPEFUL", "2 BE OR NOT 2 BE", "1", "00", "1998-067A", "2026 001 DEB"}) {
        EXPECT_EQ(namesIn(name + "\n" + line1 + "\n" + line2), Texts{name});
    }
    const std::string longName(200, 'N');
    EXPECT_EQ(namesIn(longName + "\n" + line1 + "\n" + line2), Texts{longName});
}

TEST(ElementReader, LeavesOutSetsWhoseNamesHoldControlCharacters) {
    const std::string lines = "\n" + line1 + "\n" + line2 + "\n";
    for (const std::string& name : {std::string("RED\x1b[31m"), std::string("BELL\a"), std::string("N\0L", 3),
                                    std::string("DEL\x7f")}) {
        const ReadElements read = readAll(name + lines + "GOOD" + lines);
        ASSERT_EQ(read.sets.size(), 1U);
        EXPECT_EQ(read.sets.front().name, "GOOD");
        ASSERT_EQ(read.remarks.size(), 1U);
        EXPECT_EQ(read.remarks.front().name, "");
        EXPECT_FALSE(read.remarks.front().used);
    }
    EXPECT_EQ(namesIn("\xC3\x89TOILE" + lines), Texts{"\xC3\x89TOILE"});
}

TEST(ElementReader, ReadsCatalogueNumbersInAlpha5) {
    // Letters stand for 10 to 33; I and O are left out.
    const std::string letters = "ABCDEFGHJKLMNPQRSTUVWXYZ";
    for (std::size_t i = 0; i < letters.size(); ++i) {
        const int hundred = (static_cast<int>(i) + 10) * 10000;
        EXPECT_EQ(parseCatalogNumber(letters.substr(i, 1) + "0000"), hundred);
        EXPECT_EQ(parseCatalogNumber(letters.substr(i, 1) + "9999"), hundred + 9999);
    }
    EXPECT_EQ(parseCatalogNumber("00005"), 5);
    EXPECT_EQ(parseCatalogNumber("    5"), 5);
    EXPECT_EQ(parseCatalogNumber("99999"), 99999);
    for (const char* wrong : {"I0000", "O0000", "a0000", "AA000", "A000", "A00000", "A 000", "A00 0", "     ",
                              "1A000", "0000A", "-0001", "+0001", "1.000", "12 45", "Ä000", "", "@0000"}) {
        EXPECT_EQ(parseCatalogNumber(wrong), -1) << wrong;
    }
}

TEST(ElementReader, ReadsTheShippedAlpha5Sets) {
    const ReadElements read = readAll(shippedText("alpha5.txt"));
    EXPECT_EQ(read.sets.size(), 16U);
    for (const ElementSet& set : read.sets) EXPECT_GE(set.catalogNumber, 100000) << set.name;
}

TEST(ElementReader, TakesEpochYearsFrom1957To2056) {
    const auto yearOf = [](const std::string& digits) {
        return isoText(readAll(withColumns(line1, 19, digits) + "\n" + line2).sets.at(0).epoch, 0)
            .substr(0, 4);
    };
    EXPECT_EQ(yearOf("57"), "1957");
    EXPECT_EQ(yearOf("99"), "1999");
    EXPECT_EQ(yearOf("00"), "2000");
    EXPECT_EQ(yearOf("56"), "2056");
}

TEST(ElementReader, TellsDifferentNumbersInLines1And2AndUsesTheFirst) {
    const ReadElements read = readAll(name1 + "\n" + line1 + "\n" + withColumns(line2, 3, "25545") + "\n");
    ASSERT_EQ(read.sets.size(), 1U);
    EXPECT_EQ(read.sets.front().catalogNumber, 25544);
    ASSERT_EQ(read.remarks.size(), 1U);
    EXPECT_TRUE(read.remarks.front().used);
    EXPECT_EQ(read.remarks.front().line, 3U);
    EXPECT_EQ(read.remarks.front().name, name1);
    EXPECT_NE(read.remarks.front().reason.find("25544"), std::string::npos);
    EXPECT_NE(read.remarks.front().reason.find("25545"), std::string::npos);
}

TEST(ElementReader, LeavesOutLonelyLinesAndGoesOn) {
    const std::string good = "GOOD\n" + line1 + "\n" + line2 + "\n";
    const struct {
        std::string what;
        std::string text;
        std::size_t line;
    } table[] = {
        {"line 1 before a name", "LOST\n" + line1 + "\n" + good, 2},
        {"line 1 before a line 1", "LOST\n" + line1 + "\n" + line1 + "\n" + line2 + "\n" + good, 2},
        {"line 1 at the end", good + "LOST\n" + line1 + "\n", 5},
        {"line 2 behind a name", "LOST\n" + line2 + "\n" + good, 2},
        {"line 2 twice", good + line2 + "\n", 4},
        {"lines swapped", "LOST\n" + line2 + "\n" + good, 2},
    };
    for (const auto& row : table) {
        const ReadElements read = readAll(row.text);
        ASSERT_EQ(read.remarks.size(), 1U) << row.what;
        EXPECT_EQ(read.remarks.front().line, row.line) << row.what;
        EXPECT_FALSE(read.remarks.front().used) << row.what;
        EXPECT_EQ(std::ranges::count(namesIn(row.text), "GOOD"), 1) << row.what;
    }
}

TEST(ElementReader, TellsElementTextsFromOthersByTheirContent) {
    EXPECT_TRUE(looksLikeElementSets(name1 + "\r\n" + line1 + "\r\n" + line2 + "\r\n"));
    EXPECT_TRUE(looksLikeElementSets(line2));
    EXPECT_TRUE(looksLikeElementSets("a preface\nof two lines\n" + line1));
    EXPECT_FALSE(looksLikeElementSets(""));
    EXPECT_FALSE(looksLikeElementSets("1 satellite of 25544, and 2 are not in these lines\n2 be or not\n"));
    EXPECT_FALSE(looksLikeElementSets(shippedText("locations.dat")));
    EXPECT_FALSE(looksLikeElementSets(shippedText("satellite.dat")));
    EXPECT_TRUE(looksLikeElementSets(std::string("\0\1", 2) + "\n" + line1 + "\n" + line2));
    for (const std::string& file : shippedElementFiles()) {
        EXPECT_TRUE(looksLikeElementSets(shippedText(file))) << file;
    }
}

TEST(ElementReader, FindsNothingWrongInTheShippedFiles) {
    std::size_t sets = 0;
    for (const std::string& file : shippedElementFiles()) {
        const ReadElements read = readAll(shippedText(file));
        sets += read.sets.size();
        for (const ElementRemark& remark : read.remarks) {
            EXPECT_TRUE(remark.used) << file << ':' << remark.line << ' ' << remark.reason;
        }
    }
    EXPECT_GT(sets, 2000U);
}

}  // namespace
}  // namespace vantrace
