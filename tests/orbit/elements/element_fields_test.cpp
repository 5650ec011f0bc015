// What the reader accepts and refuses in the single fields of lines 1 and 2.
#include "orbit/elements/element_fields.h"

#include "tests/orbit/element_texts.h"
#include "tests/support/testing.h"

namespace vantrace {
namespace {

const std::string line1 = "1 25544U 98067A   26233.53315667  .00008864  00000+0  16558-3 0  9995";
const std::string line2 = "2 25544  51.6331 336.6713 0007673  69.9303 290.2511 15.49551867581884";

ElementParse parsed(int line, std::size_t column, std::string_view text) {
    const std::string first = line == 1 ? withColumns(line1, column, text) : line1;
    const std::string second = line == 2 ? withColumns(line2, column, text) : line2;
    return parseElementLines({first, second});
}

TEST(ElementFields, AWrongNumberInAnyFieldCostsTheSetAndIsNamed) {
    const struct {
        int line;
        std::size_t column;
        const char* text;
        const char* reason;
    } table[] = {
        {1, 3, "2554X", "catalogue number"},
        {1, 3, "I0000", "catalogue number"},
        {1, 3, "     ", "catalogue number"},
        {1, 19, "2X", "epoch year"},
        {1, 19, " 6", "epoch year"},
        {1, 21, "000.53315667", "epoch day"},
        {1, 21, "366.00000000", "epoch day"},
        {1, 21, "999.99999999", "epoch day"},
        {1, 21, "233.5331.667", "epoch day"},
        {1, 21, "            ", "epoch day"},
        {1, 21, "-33.53315667", "epoch day"},
        {1, 34, " .0000x864", "first derivative"},
        {1, 34, "99.9999999", "first derivative"},
        {1, 45, " 0000x+0", "second derivative"},
        {1, 45, " 00000+x", "second derivative"},
        {1, 45, "x00000+0", "second derivative"},
        {1, 54, " 16558-x", "drag term"},
        {1, 54, " 16558x3", "drag term"},
        {1, 54, " 1655.-3", "drag term"},
        {2, 3, "2554X", "catalogue number"},
        {2, 9, " 51.633x", "inclination"},
        {2, 9, "180.0001", "inclination"},
        {2, 9, " -1.0000", "inclination"},
        {2, 9, "        ", "inclination"},
        {2, 18, "360.0001", "right ascension"},
        {2, 18, "336,6713", "right ascension"},
        {2, 18, "nan     ", "right ascension"},
        {2, 27, "000767x", "eccentricity"},
        {2, 27, ".007673", "eccentricity"},
        {2, 27, "-007673", "eccentricity"},
        {2, 35, "369.9303", "argument of perigee"},
        {2, 35, "1e2     ", "argument of perigee"},
        {2, 44, "400.0000", "mean anomaly"},
        {2, 44, "29 .2511", "mean anomaly"},
        {2, 53, "00.00000000", "mean motion"},
        {2, 53, "-1.00000000", "mean motion"},
        {2, 53, "21.00000000", "mean motion"},
        {2, 53, "inf        ", "mean motion"},
        {2, 64, "5818x", "revolution number"},
        {2, 64, "58 88", "revolution number"},
    };
    for (const auto& row : table) {
        const ElementParse parse = parsed(row.line, row.column, row.text);
        EXPECT_NE(parse.reason.find(row.reason), std::string::npos)
            << "line " << row.line << " column " << row.column << " \"" << row.text << "\": " << parse.reason;
        EXPECT_EQ(parse.wrongLine, row.line) << row.text;
    }
}

TEST(ElementFields, OddButGoodNumbersAreRead) {
    EXPECT_EQ(parsed(1, 3, "   44").set.catalogNumber, 44);
    EXPECT_DOUBLE_EQ(parsed(1, 54, "-11606-4").set.bStar, -0.11606e-4);
    EXPECT_DOUBLE_EQ(parsed(1, 54, "+11606+1").set.bStar, 1.1606);
    EXPECT_DOUBLE_EQ(parsed(1, 54, " 13519-0").set.bStar, 0.13519);
    EXPECT_DOUBLE_EQ(parsed(1, 54, " 14311 1").set.bStar, 1.4311);
    EXPECT_EQ(parsed(1, 54, "        ").set.bStar, 0.0);
    EXPECT_DOUBLE_EQ(parsed(2, 27, "   7673").set.eccentricity, 0.0007673);
    EXPECT_DOUBLE_EQ(parsed(2, 27, "9999999").set.eccentricity, 0.9999999);
    EXPECT_DOUBLE_EQ(parsed(2, 9, "180.0000").set.inclinationRad, pi);
    EXPECT_DOUBLE_EQ(parsed(2, 44, "360.0000").set.meanAnomalyRad, 2.0 * pi);
    EXPECT_EQ(parsed(2, 64, "     ").set.revolutionNumber, 0);
    EXPECT_EQ(parsed(2, 64, "    7").set.revolutionNumber, 7);
    EXPECT_EQ(isoText(parsed(1, 19, "24366.50000000").set.epoch, 0), "2024-12-31T12:00:00Z");
    EXPECT_EQ(isoText(parsed(1, 19, "26  1.00000000").set.epoch, 0), "2026-01-01T00:00:00Z");
    for (const ElementParse& parse : {parsed(1, 34, " .00000000"), parsed(1, 34, "-.00000093"),
                                      parsed(1, 34, "+.00000093"), parsed(1, 45, " 81888-5")}) {
        EXPECT_EQ(parse.reason, "");
    }
}

TEST(ElementFields, AWrongCheckDigitOfEitherLineIsToldWithTheRightOne) {
    for (char digit = '0'; digit <= '9'; ++digit) {
        std::string first = line1;
        first[68] = digit;
        EXPECT_EQ(parseElementLines({first, line2}).reason.empty(), digit == '5');
        std::string second = line2;
        second[68] = digit;
        EXPECT_EQ(parseElementLines({line1, second}).reason.empty(), digit == '4');
    }
    std::string second = line2;
    second[68] = 'x';
    const ElementParse parse = parseElementLines({line1, second});
    EXPECT_NE(parse.reason.find("check digit of line 2 is 'x', should be 4"), std::string::npos);
    EXPECT_EQ(parse.wrongLine, 2);
}

TEST(ElementFields, AnySingleDigitThatIsChangedIsNoticed) {
    for (std::size_t column = 1; column < 69; ++column) {
        for (const auto& [first, line] : {std::pair(true, line1), std::pair(false, line2)}) {
            std::string wrong = line;
            char& c = wrong[column - 1];
            if (c < '0' || c > '9') continue;
            c = c == '9' ? '0' : static_cast<char>(c + 1);
            EXPECT_FALSE(parseElementLines({first ? wrong : line1, first ? line2 : wrong}).reason.empty())
                << wrong;
        }
    }
}

TEST(ElementFields, LinesOfTheWrongLengthOrShiftedColumnsAreRefused) {
    for (std::size_t length = 0; length < 69; ++length) {
        EXPECT_FALSE(parseElementLines({line1.substr(0, length), line2}).reason.empty()) << length;
        EXPECT_FALSE(parseElementLines({line1, line2.substr(0, length)}).reason.empty()) << length;
    }
    EXPECT_EQ(parseElementLines({line1 + "7", line2}).wrongLine, 1);
    EXPECT_EQ(parseElementLines({line1, line2 + "7"}).wrongLine, 2);
    EXPECT_EQ(parseElementLines({line1 + " anything", line2 + " more"}).reason, "");
    // One blank too many in front: every field slides to the right by one.
    std::string slid = "2  " + line2.substr(2, 66);
    slid[68] = checkDigitOf(slid);
    EXPECT_EQ(parseElementLines({line1, slid}).wrongLine, 2);
}

}  // namespace
}  // namespace vantrace
