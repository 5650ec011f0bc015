// Pages that were made to do harm. Whatever they are, the reading ends soon and takes little room.

#include "flares/flare_table.h"
#include "tests/flares/flare_pages.h"
#include "tests/support/fake_clock.h"
#include "tests/support/testing.h"

namespace vantrace {
namespace {

constexpr std::size_t tenMegabytes = 10'000'000;

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
