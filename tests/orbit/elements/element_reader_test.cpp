#include "orbit/elements/element_reader.h"

#include "orbit/elements/element_fields.h"
#include "tests/orbit/element_texts.h"

namespace vantrace {
namespace {

// As published by CelesTrak.
const std::string name1 = "ISS (ZARYA)";
const std::string line1 = "1 25544U 98067A   26233.53315667  .00008864  00000+0  16558-3 0  9995";
const std::string line2 = "2 25544  51.6331 336.6713 0007673  69.9303 290.2511 15.49551867581884";
const std::string bothLines = "\n" + line1 + "\n" + line2 + "\n";

Texts namesIn(std::string_view text) {
    Texts names;
    for (const ElementSet& set : readAll(text).sets) names.push_back(set.name);
    return names;
}

TEST(ElementReader, ReadsEveryFieldInTheEnginesUnits) {
    const ReadElements read = readAll(name1 + bothLines);
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
    for (const std::string& text :
         {name1 + bothLines, name1 + "\r\n" + line1 + "\r\n" + line2 + "\r\n",
          name1 + "\r" + bothLines + "\r\n", name1 + bothLines.substr(0, bothLines.size() - 1),
          name1 + "             \r\n" + line1 + "  \r\n" + line2 + "   \r\n", "0 " + name1 + bothLines,
          "   " + name1 + bothLines, "0   " + name1 + bothLines, "\xEF\xBB\xBF" + name1 + bothLines,
          "# made today\n" + name1 + "\n# line 1\n" + line1 + "\n#\n" + line2 + "\n# end\n",
          "\n\n" + name1 + "\n\n" + line1 + "\n  \n" + line2 + "\n\n",
          name1 + "\n" + line1 + "\n" + line2 + "  0.0  1440.0  5.0\n"}) {
        EXPECT_EQ(namesIn(text), Texts{name1}) << text;
        EXPECT_TRUE(readAll(text).remarks.empty()) << text;
    }
}

TEST(ElementReader, CallsASetWithoutANameByItsNumber) {
    EXPECT_EQ(namesIn(bothLines), Texts{"25544"});
    EXPECT_EQ(namesIn(withColumns(line1, 3, "B0001") + "\n" + withColumns(line2, 3, "B0001")),
              Texts{"110001"});
    EXPECT_EQ(namesIn("0" + bothLines), Texts{"25544"}) << "a lonely 0 is no name";
    EXPECT_EQ(namesIn("0   \r" + bothLines), Texts{"25544"});
    EXPECT_EQ(namesIn("FIRST" + bothLines + bothLines), (Texts{"FIRST", "25544"}))
        << "no name is carried over";
}

TEST(ElementReader, KeepsNamesThatLookLikeTheStartOfALine) {
    for (const std::string& name :
         {std::string("1 HOPEFUL"), std::string("2 BE OR NOT 2 BE"), std::string("1"), std::string("00"),
          std::string("1998-067A"), std::string("2026 001 DEB"), std::string("\xC3\x89TOILE"),
          std::string(200, 'N')}) {
        EXPECT_EQ(namesIn(name + bothLines), Texts{name});
    }
}

TEST(ElementReader, LeavesOutSetsWhoseNamesHoldControlCharacters) {
    for (const std::string& name : {std::string("RED\x1b[31m"), std::string("BELL\a"), std::string("N\0L", 3),
                                    std::string("DEL\x7f")}) {
        const ReadElements read = readAll(name + bothLines + "GOOD" + bothLines);
        EXPECT_EQ(namesIn(name + bothLines + "GOOD" + bothLines), Texts{"GOOD"});
        ASSERT_EQ(read.remarks.size(), 1U);
        EXPECT_EQ(read.remarks.front().name, "");
        EXPECT_FALSE(read.remarks.front().used);
    }
}

TEST(ElementReader, ReadsCatalogueNumbersInAlpha5) {
    // Letters stand for 10 to 33; I and O are left out.
    const std::string letters = "ABCDEFGHJKLMNPQRSTUVWXYZ";
    for (std::size_t i = 0; i < letters.size(); ++i) {
        const int hundred = (static_cast<int>(i) + 10) * 10000;
        EXPECT_EQ(parseCatalogNumber(letters.substr(i, 1) + "0000"), hundred);
        EXPECT_EQ(parseCatalogNumber(letters.substr(i, 1) + "9999"), hundred + 9999);
    }
    for (const char* five : {"00005", "    5"}) EXPECT_EQ(parseCatalogNumber(five), 5);
    EXPECT_EQ(parseCatalogNumber("99999"), 99999);
    for (const char* wrong : {"I0000", "O0000", "a0000", "AA000", "A000", "A00000", "A 000", "A00 0", "     ",
                              "1A000", "0000A", "-0001", "+0001", "1.000", "12 45", "Ä000", "", "@0000"}) {
        EXPECT_EQ(parseCatalogNumber(wrong), -1) << wrong;
    }
}

TEST(ElementReader, TakesEpochYearsFrom1957To2056) {
    for (const std::string year : {"1957", "1999", "2000", "2056"}) {
        const ReadElements read = readAll(withColumns(line1, 19, year.substr(2)) + "\n" + line2);
        EXPECT_EQ(isoText(read.sets.at(0).epoch, 0).substr(0, 4), year);
    }
}

TEST(ElementReader, TellsDifferentNumbersInLines1And2AndUsesTheFirst) {
    const ReadElements read = readAll(name1 + "\n" + line1 + "\n" + withColumns(line2, 3, "25545") + "\n");
    ASSERT_EQ(read.sets.size(), 1U);
    EXPECT_EQ(read.sets.front().catalogNumber, 25544);
    ASSERT_EQ(read.remarks.size(), 1U);
    const ElementRemark& remark = read.remarks.front();
    EXPECT_TRUE(remark.used && remark.line == 3U && remark.name == name1);
    for (const char* number : {"25544", "25545"}) EXPECT_NE(remark.reason.find(number), std::string::npos);
}

TEST(ElementReader, LeavesOutLonelyLinesAndGoesOn) {
    const std::string good = "GOOD" + bothLines;
    for (const auto& [text, line] : std::map<std::string, std::size_t>{
             {"LOST\n" + line1 + "\n" + good, 2},       // line 1 before a name
             {"LOST\n" + line1 + bothLines + good, 2},  // line 1 before a line 1
             {good + "LOST\n" + line1 + "\n", 5},       // line 1 at the end
             {"LOST\n" + line2 + "\n" + good, 2},       // line 2 behind a name
             {good + line2 + "\n", 4},                  // line 2 twice
         }) {
        const ReadElements read = readAll(text);
        ASSERT_EQ(read.remarks.size(), 1U) << text;
        EXPECT_EQ(read.remarks.front().line, line) << text;
        EXPECT_FALSE(read.remarks.front().used) << text;
        EXPECT_EQ(std::ranges::count(namesIn(text), "GOOD"), 1) << text;
    }
}

TEST(ElementReader, TellsElementTextsFromOthersByTheirContent) {
    for (const std::string& text : {name1 + "\r" + bothLines, line2, "a preface\nof two lines\n" + line1,
                                    std::string("\0\1", 2) + bothLines}) {
        EXPECT_TRUE(looksLikeElementSets(text)) << text;
    }
    for (const std::string& text :
         {std::string(), std::string("1 satellite of 25544, and 2 are not in these lines\n2 be or not\n"),
          shippedText("locations.dat"), shippedText("satellite.dat")}) {
        EXPECT_FALSE(looksLikeElementSets(text)) << text;
    }
}

TEST(ElementReader, FindsNothingWrongInTheShippedFiles) {
    std::size_t sets = 0;
    for (const std::string& file : shippedElementFiles()) {
        EXPECT_TRUE(looksLikeElementSets(shippedText(file))) << file;
        const ReadElements read = readAll(shippedText(file));
        sets += read.sets.size();
        for (const ElementRemark& remark : read.remarks) {
            EXPECT_TRUE(remark.used) << file << ':' << remark.line << ' ' << remark.reason;
        }
    }
    EXPECT_GT(sets, 2000U);
}

ElementParse parsed(int line, std::size_t column, std::string_view text) {
    const std::string first = line == 1 ? withColumns(line1, column, text) : line1;
    const std::string second = line == 2 ? withColumns(line2, column, text) : line2;
    return parseElementLines({first, second});
}

TEST(ElementFields, AWrongNumberInAnyFieldCostsTheSetAndIsNamed) {
    const struct {
        int line;
        std::size_t column;
        const char* reason;
        Texts texts;
    } table[] = {
        {1, 3, "catalogue number", {"2554X", "I0000", "     "}},
        {1, 19, "epoch year", {"2X", " 6"}},
        {1,
         21,
         "epoch day",
         {"000.53315667", "366.00000000", "999.99999999", "233.5331.667", "            "}},
        {1, 21, "epoch day", {"-33.53315667"}},
        {1, 34, "first derivative", {" .0000x864", "99.9999999"}},
        {1, 45, "second derivative", {" 0000x+0", " 00000+x", "x00000+0"}},
        {1, 54, "drag term", {" 16558-x", " 16558x3", " 1655.-3"}},
        {2, 3, "catalogue number", {"2554X"}},
        {2, 9, "inclination", {" 51.633x", "180.0001", " -1.0000", "        "}},
        {2, 18, "right ascension", {"360.0001", "336,6713", "nan     "}},
        {2, 27, "eccentricity", {"000767x", ".007673", "-007673"}},
        {2, 35, "argument of perigee", {"369.9303", "1e2     "}},
        {2, 44, "mean anomaly", {"400.0000", "29 .2511"}},
        {2, 53, "mean motion", {"00.00000000", "-1.00000000", "21.00000000", "inf        "}},
        {2, 64, "revolution number", {"5818x", "58 88"}},
    };
    for (const auto& row : table) {
        for (const std::string& text : row.texts) {
            const ElementParse parse = parsed(row.line, row.column, text);
            EXPECT_NE(parse.reason.find(row.reason), std::string::npos)
                << "line " << row.line << " column " << row.column << " \"" << text << "\": " << parse.reason;
            EXPECT_EQ(parse.wrongLine, row.line) << text;
        }
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
    for (const char digit : std::string_view("0123456789x")) {
        const std::string first = line1.substr(0, 68) + digit;
        const std::string second = line2.substr(0, 68) + digit;
        EXPECT_EQ(parseElementLines({first, line2}).reason.empty(), digit == '5');
        EXPECT_EQ(parseElementLines({line1, second}).reason.empty(), digit == '4');
    }
    const ElementParse parse = parseElementLines({line1, line2.substr(0, 68) + 'x'});
    EXPECT_NE(parse.reason.find("check digit of line 2 is 'x', should be 4"), std::string::npos);
    EXPECT_EQ(parse.wrongLine, 2);
}

TEST(ElementFields, AnySingleDigitThatIsChangedIsNoticed) {
    const auto changed = [](std::string line, std::size_t column) {
        char& c = line[column];
        if (c >= '0' && c <= '9') c = c == '9' ? '0' : static_cast<char>(c + 1);
        return line;
    };
    for (std::size_t column = 0; column < 68; ++column) {
        const std::string first = changed(line1, column);
        const std::string second = changed(line2, column);
        EXPECT_EQ(parseElementLines({first, line2}).reason.empty(), first == line1) << first;
        EXPECT_EQ(parseElementLines({line1, second}).reason.empty(), second == line2) << second;
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
