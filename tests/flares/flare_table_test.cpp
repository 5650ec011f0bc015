#include "flares/flare_table.h"

#include "tests/flares/flare_pages.h"
#include "tests/support/fake_clock.h"

namespace vantrace {
namespace {

class FlareTableTest : public ::testing::Test {
  protected:
    FlareList read(const std::string& page) {
        FlareList list;
        readFlareTable(page, clock, list);
        return list;
    }
    /// The rows that were found before the failure; the test fails where there is none.
    FlareList readUpToFailure(const std::string& page) {
        FlareList list;
        EXPECT_THROW(readFlareTable(page, clock, list), std::exception) << page;
        return list;
    }
    static std::string dateAndTime(const FlareRow& row) {
        return row[FlareColumn::Date] + " " + row[FlareColumn::Time];
    }

    FakeClock clock;
};

TEST_F(FlareTableTest, EachRowOfThePageIsARowOfTheList) {
    FlareRow second = wholeRow;
    second[FlareColumn::Date] = "06 JAN";
    second[FlareColumn::Satellite] = " Iridium & co ";  // untrimmed
    EXPECT_EQ(read(pageStart + flareRow() + flareRow({"6 jan", "9:05:33 PM", " Iridium & co "}) + pageEnd),
              (FlareList{wholeRow, second}));
}

TEST_F(FlareTableTest, DateAndTimeBecomeLocalTogether) {
    const auto local = [&](const std::string& date, const std::string& time) {
        return dateAndTime(read(pageStart + flareRow({date, time}) + pageEnd).at(0));
    };
    clock.setUtc({2026, 8, 21, 20, 0, 0}, 120);
    EXPECT_EQ(local("31 Aug", "22:30:00"), "01 SEP 00:30:00");
    EXPECT_EQ(local("31 Dec", "23:59:59"), "01 JAN 01:59:59");
    clock.setUtc({2026, 8, 21, 20, 0, 0}, -330);
    EXPECT_EQ(local("1 Mar", "05:29:59"), "28 FEB 23:59:59") << "2026 has no leap day";
    EXPECT_EQ(local("1 Jan", "00:00:00"), "31 DEC 18:30:00");
    clock.setUtc({2028, 2, 25, 20, 0, 0}, -330);
    EXPECT_EQ(local("1 Mar", "05:29:59"), "29 FEB 23:59:59");
}

TEST_F(FlareTableTest, WithoutItsHeadingAPageHasNoTable) {
    EXPECT_TRUE(readUpToFailure("").empty());
    EXPECT_TRUE(readUpToFailure("<TR>DISTANCE TO</TR>" + flareRow() + pageEnd).empty()) << "case counts";
    EXPECT_TRUE(readUpToFailure(flareRow() + "<HTML>").empty());
    // What stands in front of the heading is no row.
    EXPECT_EQ(read(flareRow({"1 Jan", "00:00:00"}) + pageStart + flareRow() + pageEnd), FlareList{wholeRow});
}

TEST_F(FlareTableTest, ACellOfSevenCharactersEndsTheTable) {
    EXPECT_TRUE(read(pageStart + pageEnd).empty());
    EXPECT_TRUE(read(pageStart + "<TD>5 March</TD>" + flareRow() + pageEnd).empty());
    // Blanks at its ends don't count.
    const FlareList list = read(pageStart + flareRow({"   5 Mar   ", "1:02"}) + pageEnd);
    EXPECT_EQ(dateAndTime(list.at(0)), "05 MAR 01:02:00");
    // Letters count, not their bytes: six of them are a date, if one that can't be read.
    EXPECT_TRUE(read(pageStart + flareRow({"15 M\u00E4rz", "1:02"}) + pageEnd).empty());
    EXPECT_THROW(read(pageStart + flareRow({"5 M\u00E4rz", "1:02"}) + pageEnd), std::exception);
}

TEST_F(FlareTableTest, ARowWithoutItsLinkIsKeptAndEndsTheScan) {
    EXPECT_EQ(read(pageStart + flareRow() + "<TD>6 Jan </TD><TD>none</TD>" + pageEnd),
              (FlareList{wholeRow, flareRowOf({"6 Jan "})}))
        << "the raw text of the cell";
}

TEST_F(FlareTableTest, APageThatEndsBetweenCellsLeavesTheRowAsItIs) {
    const std::string page = pageStart + flareRow();
    FlareRow part = flareRowOf({wholeRow.texts[0]});
    std::size_t column = 1;
    for (const std::string end : {"21:05:33</A>", "-3</TD>", "34&deg;", "254&deg;", "12.3 km", "-8</TD>"}) {
        part.texts[column] = wholeRow.texts[column];
        EXPECT_EQ(read(page.substr(0, page.find(end) + end.size())), FlareList{part}) << end;
        ++column;
    }
}

TEST_F(FlareTableTest, APageThatEndsWithinACellFails) {
    const std::string page = pageStart + flareRow({"5 Jan", "21:05:33", "Iridium 23"});
    for (const char* end : {">21:05", "CENTER>-", "<TD>3", "<TD>25", "<TD>12.3", "<TD>-8", ">Iridium 2"}) {
        const std::string cut = page.substr(0, page.rfind(end) + std::string(end).size());
        EXPECT_EQ(readUpToFailure(cut).size(), 1U) << end;
    }
    EXPECT_TRUE(readUpToFailure(page.substr(0, page.rfind("5 Jan") + 2)).empty());
}

TEST_F(FlareTableTest, BehindTheLastRowTheSearchGoesOnAtTheFourthCharacter) {
    // Seven characters from there to the next "<": the end.
    EXPECT_EQ(read("abc1234567<" + pageStart + flareRow()), FlareList{wholeRow});
    EXPECT_EQ(read("abc123456<istance to" + flareRow({"5 Jan", "21:05:33"}) + "<TD>the table's end<").size(),
              1U)
        << "not looked at where a cell comes";
    // Fewer: a cell that is no date.
    const FlareList list = readUpToFailure("abc123456<" + pageStart + flareRow());
    ASSERT_EQ(list.size(), 2U);
    EXPECT_EQ(list[0], wholeRow);
    EXPECT_EQ(dateAndTime(list[1]), "123456 21:05:33");
    // With the row's link missing as well, that cell is the end of a good list.
    EXPECT_EQ(read("abc12<istance to<TD>5 Jan<").size(), 1U);
    EXPECT_EQ(read("abc12<istance to").at(0)[FlareColumn::Date], "12");
}

TEST_F(FlareTableTest, ACellThatStartsWithALineEndBelongsToTheRowBefore) {
    std::string second = flareRow({"7 Jan", "01:02:03", "Iridium 9"});
    second.replace(second.find("<TD>7 Jan"), 9, "<TD>\r\nab");
    const FlareList list = read(pageStart + flareRow() + second + pageEnd);
    ASSERT_EQ(list.size(), 1U);
    EXPECT_EQ(dateAndTime(list[0]), "05 JAN 01:02:03");
    EXPECT_EQ(list[0][FlareColumn::Satellite], "Iridium 9");
    EXPECT_TRUE(readUpToFailure(pageStart + second + pageEnd).empty()) << "there is no row before";
}

TEST_F(FlareTableTest, WhatIsNoDateOrTimeFails) {
    const std::string day = "5 Jan", hour = "21:05:33";
    for (const FlareTimes& flare : {FlareTimes{"", hour},
                                    {"5", hour},
                                    {"abc", hour},
                                    {"30 Feb", hour},
                                    {"5&Jan", hour},
                                    {day, ""},
                                    {day, "25:00:00"},
                                    {day, "noon"}}) {
        EXPECT_EQ(readUpToFailure(pageStart + flareRow(flare) + pageEnd).size(), 1U) << flare.date;
    }
}

constexpr std::size_t tenMegabytes = 10'000'000;

/// Pages that were made to do harm. Whatever they are, the reading ends soon and takes little room.
class HostilePagesTest : public ::testing::Test {
  protected:
    /// Whether the page was read; it must have been decided within seconds, on a busy machine too.
    bool isRead(const std::string& page) {
        const auto start = std::chrono::steady_clock::now();
        list.clear();
        bool isGood = true;
        try {
            readFlareTable(page, clock, list);
        } catch (const std::exception&) {
            isGood = false;
        }
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
        EXPECT_LE(list.size(), mostFlares);
        std::size_t bytes = 0;
        for (const FlareRow& row : list) {
            for (const std::string& text : row.texts) bytes += text.size();
        }
        EXPECT_LE(bytes, 2 * tenMegabytes);
        return isGood;
    }
    static std::string repeated(const std::string& text, std::size_t bytes) {
        std::string all;
        while (all.size() < bytes) all += text;
        return all;
    }

    FakeClock clock;
    FlareList list;
    /// As short as a row can be.
    const std::string shortRow = "<TD>5Jan<flaredetails>1:00<<TD>1<<TD>2&<TD>3&<TD>4 km<TD>5<<A HREF>6</A>";
};

TEST_F(HostilePagesTest, ManyRowsAreReadAndTooManyAreAFailure) {
    EXPECT_TRUE(isRead(pageStart + repeated(shortRow, shortRow.size() * mostFlares) + pageEnd));
    EXPECT_EQ(list.size(), mostFlares);
    EXPECT_FALSE(isRead(pageStart + repeated(shortRow, tenMegabytes) + pageEnd));
}

TEST_F(HostilePagesTest, APageThatLeadsBackToItsStartForEverIsAFailure) {
    // The text behind the third character is a good date, so that each round adds rows.
    EXPECT_FALSE(isRead("<p>5 Jan<" + pageStart + flareRow()));
    EXPECT_GE(list.size(), 2U);
    EXPECT_FALSE(isRead("<p>5 Jan<" + pageStart + repeated(shortRow, tenMegabytes / 10)));
    // So does the tag of a cell that nobody closes: of a name, and of a time.
    EXPECT_FALSE(isRead("</A>istance to<TD>5Jan<flaredetails>1:00<<TD>1<<TD>2&<TD>3&<TD>4 km<TD>5<<A HREF"));
    EXPECT_GE(list.size(), 2U);
    const std::string cells = "<TD>1<<TD>2&<TD>3&<TD>4 km<TD>5<<A HREF>6</A>";
    EXPECT_FALSE(isRead("1:00<istance to<TD>5Jan<" + cells + "<TD>5Jan<flaredetails"));
    EXPECT_GE(list.size(), 2U);
    // Going back is no failure where it leads to an end.
    EXPECT_TRUE(isRead("1:00<istance to<TD>5Jan<" + cells + "<TD>the end<flaredetails"));
    EXPECT_EQ(list.size(), 1U);
}

TEST_F(HostilePagesTest, RowsThatLieWithinANameAreBounded) {
    // Only the page's end ends a name: each row's name holds all rows behind it.
    std::string row = shortRow;
    row.resize(row.rfind("</A>"));
    EXPECT_FALSE(isRead(pageStart + repeated(row, tenMegabytes) + "</A>" + pageEnd));
    EXPECT_TRUE(isRead(pageStart + repeated(row, 10'000) + "</A>" + pageEnd));
}

TEST_F(HostilePagesTest, LongAndBinaryCellsAreTakenAsTheyAre) {
    EXPECT_TRUE(isRead(pageStart + std::string(tenMegabytes, '<') + "<TD>the end<"));
    EXPECT_FALSE(isRead(pageStart + flareRow({"5 Jan", "1:00", std::string(tenMegabytes, 'x')}) + pageEnd));
    EXPECT_TRUE(isRead(pageStart + flareRow({"5 Jan", "1:00", std::string(1'000'000, 'x')}) + pageEnd));
    EXPECT_FALSE(isRead(pageStart + "<TD>" + std::string(tenMegabytes, ' ')));
    EXPECT_TRUE(isRead(pageStart + repeated("<TD>", tenMegabytes)));
    EXPECT_FALSE(isRead(pageStart + repeated("<TD>5Jan<flaredetails", tenMegabytes)));
    EXPECT_FALSE(isRead(std::string(tenMegabytes, '\0')));
    const std::string binary("a\0\x01\xFF;", 5);
    ASSERT_TRUE(isRead(pageStart + flareRow({"5 Jan", "1:00", binary}) + pageEnd));
    EXPECT_EQ(list.at(0)[FlareColumn::Satellite], binary);
}

}  // namespace
}  // namespace vantrace
