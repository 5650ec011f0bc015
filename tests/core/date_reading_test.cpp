#include "core/date_reading.h"

#include "tests/support/testing.h"

namespace vantrace {
namespace {

TEST(ReadMonthDay, TakesTheUsualEnglishForms) {
    for (const char* text : {"05 JAN", "5 Jan", "Jan 5", "january 5", " 5-jan ", "5/Jan", "5Jan", "JAN5",
                             "Jan. 5", "5\tJanuary"}) {
        EXPECT_EQ(readMonthDay(text), (MonthDay{1, 5})) << text;
    }
    EXPECT_EQ(readMonthDay("30 Sept"), (MonthDay{9, 30}));
    EXPECT_EQ(readMonthDay("31 Dec"), (MonthDay{12, 31}));
    EXPECT_EQ(readMonthDay("29 Feb"), (MonthDay{2, 29})) << "the year isn't told";
}

TEST(ReadMonthDay, RefusesWhatIsNoDay) {
    for (const char* text :
         {"", " ", "5", "Jan", "5 1", "5/1", "Ja 5", "5 Jax", "5 Januaryy", "0 Jan", "32 Jan", "30 Feb",
          "31 Sep", "005 Jan", "5 Jan 4", "Jan 5 Jan", "5 Jan x", "-5 Jan", "5 J\xC3\xA4n"}) {
        EXPECT_THROW(readMonthDay(text), std::invalid_argument) << text;
    }
    EXPECT_THROW(readMonthDay(std::string_view("5 Jan\0", 6)), std::invalid_argument);
}

TEST(ReadTimeOfDay, TakesTheUsualEnglishForms) {
    for (const char* text : {"21:05:33", " 21:05:33 ", "9:05:33 PM", "9:05:33pm", "09:05:33  pm"}) {
        EXPECT_EQ(readTimeOfDay(text), (TimeOfDay{21, 5, 33})) << text;
    }
    EXPECT_EQ(readTimeOfDay("9:05"), (TimeOfDay{9, 5, 0}));
    EXPECT_EQ(readTimeOfDay("9 PM"), (TimeOfDay{21, 0, 0}));
    EXPECT_EQ(readTimeOfDay("12:00:01 AM"), (TimeOfDay{0, 0, 1}));
    EXPECT_EQ(readTimeOfDay("12:30 pm"), (TimeOfDay{12, 30, 0}));
    EXPECT_EQ(readTimeOfDay("00:00:00"), (TimeOfDay{0, 0, 0}));
}

TEST(ReadTimeOfDay, RefusesWhatIsNoTime) {
    for (const char* text :
         {"", "21", "24:00:00", "21:60", "21:00:60", "13:00 PM", "0:30 AM", "21:", "21:05:", ":05", "PM",
          "21:05:33:1", "21:05:33.5", "9:05 XM", "9:05 PM x", "021:05", "-1:05", "21h05"}) {
        EXPECT_THROW(readTimeOfDay(text), std::invalid_argument) << text;
    }
}

}  // namespace
}  // namespace vantrace
