#include "core/date_time.h"

#include "core/date_reading.h"
#include "tests/support/fake_clock.h"
#include "tests/support/testing.h"

namespace vantrace {
namespace {

DateParts carried(const DateParts& parts) {
    return dateParts(packDateTime(parts));
}

TEST(DateTime, CountsDaysFromItsDayZero) {
    EXPECT_EQ(packDateTime({1899, 12, 30, 0, 0, 0}), 0.0);
    EXPECT_EQ(packDateTime({1899, 12, 29, 18, 0, 0}), -0.25);
    EXPECT_EQ(packDateTime({1970, 1, 1, 0, 0, 0}), 25569.0);
    EXPECT_EQ(packDateTime({2000, 1, 1, 12, 0, 0}), 36526.5);
    EXPECT_EQ(packDateTime({9999, 12, 31, 0, 0, 0}), 2958465.0);
    EXPECT_EQ(packDateTime({100, 1, 1, 0, 0, 0}), -657434.0);
}

TEST(DateTime, AgreesWithTheCalendarInEveryYear) {
    using namespace std::chrono;
    const sys_days zero{year(1899) / December / day(30)};
    int step = 1;
    for (int number = -657434; number <= 2958465; number += step) {
        // Every day of the years that matter, and a walk through all weekdays and month ends of the rest.
        step = number > 0 && number < 80000 ? 1 : 13;
        const year_month_day expected{zero + days(number)};
        const DateParts parts = dateParts(number + 0.75);
        ASSERT_EQ(parts, (DateParts{static_cast<int>(expected.year()),
                                    static_cast<int>(static_cast<unsigned>(expected.month())),
                                    static_cast<int>(static_cast<unsigned>(expected.day())), 18, 0, 0}))
            << number;
        ASSERT_EQ(packDateTime(parts), number + 0.75);
    }
}

TEST(DateTime, CarriesPartsBeyondTheirRanges) {
    const std::vector<std::pair<DateParts, DateParts>> cases{
        {{2024, 1, 32, 0, 0, 0}, {2024, 2, 1, 0, 0, 0}},
        {{2024, 2, 30, 0, 0, 0}, {2024, 3, 1, 0, 0, 0}},
        {{2024, 3, 0, 0, 0, 0}, {2024, 2, 29, 0, 0, 0}},
        {{2023, 13, 1, 0, 0, 0}, {2024, 1, 1, 0, 0, 0}},
        {{2024, 0, 1, 0, 0, 0}, {2023, 12, 1, 0, 0, 0}},
        {{2024, -11, 1, 0, 0, 0}, {2023, 1, 1, 0, 0, 0}},
        {{2023, 12, 31, 23, 59, 75}, {2024, 1, 1, 0, 0, 15}},
        {{2023, 12, 31, 23, 60, 0}, {2024, 1, 1, 0, 0, 0}},
        {{2024, 3, 1, 0, -1, 0}, {2024, 2, 29, 23, 59, 0}},
        {{2024, 3, 1, 49, 0, -1}, {2024, 3, 3, 0, 59, 59}}};
    for (const auto& [parts, expected] : cases) EXPECT_EQ(carried(parts), expected);
}

TEST(DateTime, TakesPartsAfterRoundingToTheNearestSecond) {
    const double midnight = packDateTime({2024, 3, 1, 0, 0, 0});
    EXPECT_EQ(dateParts(midnight - 0.4 / 86400), (DateParts{2024, 3, 1, 0, 0, 0}));
    EXPECT_EQ(dateParts(midnight - 0.6 / 86400), (DateParts{2024, 2, 29, 23, 59, 59}));
    EXPECT_EQ(dateParts(midnight + 59.6 / 86400), (DateParts{2024, 3, 1, 0, 1, 0}));
    EXPECT_EQ(dateParts(-0.25 + 0.4 / 86400), (DateParts{1899, 12, 29, 18, 0, 0}));
    for (int second = 0; second < 86400; ++second) {
        const DateParts parts{9999, 12, 31, second / 3600, second / 60 % 60, second % 60};
        ASSERT_EQ(carried(parts), parts);
    }
}

TEST(DateTime, RefusesWhatIsNoDate) {
    EXPECT_THROW(packDateTime({99, 12, 31, 0, 0, 0}), std::range_error);
    EXPECT_THROW(packDateTime({9999, 12, 31, 24, 0, 0}), std::range_error);
    const int most = std::numeric_limits<int>::max();
    EXPECT_THROW(packDateTime({most, most, most, most, most, most}), std::range_error);
    EXPECT_THROW(packDateTime({-most, -most, -most, -most, -most, -most}), std::range_error);
    for (const double bad : {-657434.001, 2958466.0, 1e300, std::numeric_limits<double>::infinity(),
                             std::numeric_limits<double>::quiet_NaN()}) {
        EXPECT_THROW(dateParts(bad), std::range_error) << bad;
    }
}

TEST(Offset, IsWholeMinutesFromOneReading) {
    FakeClock clock;
    clock.setUtc({2024, 1, 1, 1, 0, 0}, -300);
    EXPECT_EQ(offsetMinutes(clock), 300) << "west of Greenwich UTC is the later one, here by a year's end";
    EXPECT_EQ(clock.reads(), 1);
    clock.setUtc({2024, 2, 29, 20, 0, 0}, 345);
    EXPECT_EQ(offsetMinutes(clock), -345);
    EXPECT_EQ(NowUTC(clock), packDateTime({2024, 2, 29, 20, 0, 0}));
    EXPECT_EQ(NowLocal(clock), packDateTime({2024, 3, 1, 1, 45, 0}));
}

TEST(Offset, TurnsLocalTimeToUtcAndBackToTheSecondAndItsFractions) {
    FakeClock clock;
    clock.setUtc({2024, 7, 1, 0, 0, 0}, 120);
    const double winter = packDateTime({2024, 1, 1, 0, 30, 0});
    EXPECT_EQ(ToUTC(clock, winter), packDateTime({2023, 12, 31, 22, 30, 0})) << "the offset is that of now";
    for (const int minutes : {-720, -210, 0, 1, 330, 765, 840}) {
        clock.setUtc({2024, 7, 1, 0, 0, 0}, minutes);
        for (int second = 0; second < 86400; second += 7) {
            const double utc = packDateTime({2024, 6, 30, 0, 0, second});
            const double local = ToLocal(clock, utc);
            ASSERT_EQ(local, packDateTime({2024, 6, 30, 0, minutes, second}));
            ASSERT_EQ(ToUTC(clock, local), utc);
        }
    }
    clock.setUtc({2024, 7, 1, 0, 0, 0}, 60);
    const double fraction = packDateTime({2024, 7, 1, 0, 0, 0}) + 0.3 / 86400;
    EXPECT_NEAR((ToLocal(clock, fraction) - fraction) * 86400, 3600, 1e-5);
}

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
