#include "flares/flare_table.h"

#include "tests/flares/flare_pages.h"
#include "tests/support/fake_clock.h"
#include "tests/support/testing.h"

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
    static FlareRow rowOf(std::array<std::string, flareColumns> texts) {
        FlareRow row;
        row.texts = std::move(texts);
        return row;
    }

    FakeClock clock;
    const FlareRow wholeRow = rowOf({"05 JAN", "21:05:33", "-3", "34", "254", "12.3 km", "-8", "Iridium 23"});
};

TEST_F(FlareTableTest, EachRowOfThePageIsARowOfTheList) {
    const FlareList list =
        read(pageStart + flareRow() + flareRow({"6 jan", "9:05:33 PM", " Iridium & co "}) + pageEnd);
    ASSERT_EQ(list.size(), 2U);
    EXPECT_EQ(list[0], wholeRow);
    EXPECT_EQ(list[1], rowOf({"06 JAN", "21:05:33", "-3", "34", "254", "12.3 km", "-8", " Iridium & co "}))
        << "untrimmed";
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
    const FlareList list = read(pageStart + flareRow() + "<TD>6 Jan </TD><TD>none</TD>" + pageEnd);
    ASSERT_EQ(list.size(), 2U);
    EXPECT_EQ(list[1], rowOf({"6 Jan ", "", "", "", "", "", "", ""})) << "the raw text of the cell";
}

TEST_F(FlareTableTest, APageThatEndsBetweenCellsLeavesTheRowAsItIs) {
    const std::string page = pageStart + flareRow();
    FlareRow part = rowOf({wholeRow.texts[0], wholeRow.texts[1], "", "", "", "", "", ""});
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
    for (const char* date : {"", "5", "abc", "30 Feb", "5&Jan"}) {
        EXPECT_EQ(readUpToFailure(pageStart + flareRow({date, "21:05:33"}) + pageEnd).size(), 1U) << date;
    }
    for (const char* time : {"", "25:00:00", "noon"}) {
        EXPECT_EQ(readUpToFailure(pageStart + flareRow({"5 Jan", time}) + pageEnd).size(), 1U) << time;
    }
}

}  // namespace
}  // namespace vantrace
