#include "orbit/instant.h"

#include "tests/support/testing.h"

namespace vantrace {
namespace {

TEST(Instant, KeepsAMicrosecondThroughTextAndBack) {
    for (const std::string text :
         {"2026-08-22T10:00:00.123456Z", "1957-10-04T19:28:34.000001Z", "2056-12-31T23:59:59.999999Z"}) {
        const auto time = parseIsoText(text);
        ASSERT_TRUE(time) << text;
        EXPECT_EQ(isoText(*time, 6), text);
        const Instant later = plusSeconds(*time, 1e-6);
        EXPECT_NEAR(secondsBetween(*time, later), 1e-6, 1e-11);
    }
}

TEST(Instant, IsNormalisedHoweverItIsMade) {
    std::mt19937_64 random(6);
    std::uniform_real_distribution<double> julianDate(2.3e6, 2.6e6);
    std::uniform_real_distribution<double> seconds(-1e8, 1e8);
    for (int i = 0; i < 20000; ++i) {
        const Instant start = instantFromJulianDate(julianDate(random), 1e-3 * seconds(random));
        const double added = seconds(random);
        const Instant end = plusSeconds(start, added);
        const Instant midnight{start.day, 0.0};
        for (const Instant& time : {start, end, plusSeconds(midnight, -1e-13)}) {
            EXPECT_EQ(time.day - std::floor(time.day), 0.5);
            EXPECT_TRUE(time.fraction >= 0.0 && time.fraction < 1.0) << time.fraction;
        }
        EXPECT_NEAR(secondsBetween(start, end), added, 1e-7);
        EXPECT_NEAR(minutesBetween(start, end) * 60.0, added, 1e-7);
    }
}

TEST(Instant, AgreesWithTheCalendarOfTheLibraryFromYear1To9999) {
    using namespace std::chrono;
    const sys_days unixEpoch{year(1970) / January / day(1)};
    for (sys_days date{year(1) / January / day(1)}; date < sys_days{year(10000) / January / day(1)};
         date += days(11)) {
        const year_month_day parts{date};
        const int y = static_cast<int>(parts.year());
        const int m = static_cast<int>(static_cast<unsigned>(parts.month()));
        const int d = static_cast<int>(static_cast<unsigned>(parts.day()));
        const double wanted = 2440587.5 + static_cast<double>((date - unixEpoch).count());
        ASSERT_EQ(julianDateOfMidnight(y, m, d), wanted) << y << '-' << m << '-' << d;
        const CalendarTime back = calendarTime({wanted, 0.25}, 0);
        ASSERT_TRUE(back.year == y && back.month == m && back.day == d && back.hour == 6) << wanted;
    }
}

TEST(Instant, DayNumbersCountFromTheEndOf1899) {
    EXPECT_EQ(isoText(instantFromDayNumber(0.0), 0), "1899-12-30T00:00:00Z");
    EXPECT_EQ(isoText(instantFromDayNumber(-0.25), 0), "1899-12-29T18:00:00Z");
    EXPECT_EQ(isoText(instantFromDayNumber(36526.5), 0), "2000-01-01T12:00:00Z");
    EXPECT_DOUBLE_EQ(dayNumber(instantFromCalendar({2000, 1, 1, 12, 0, 0.0})), 36526.5);
}

TEST(IsoText, CarriesARoundedSecondThroughToTheYear) {
    const struct {
        CalendarTime time;
        int places;
        const char* text;
    } table[] = {
        {{2026, 12, 31, 23, 59, 59.9996}, 4, "2026-12-31T23:59:59.9996Z"},
        {{2026, 12, 31, 23, 59, 59.9996}, 3, "2027-01-01T00:00:00.000Z"},
        {{2026, 12, 31, 23, 59, 59.9996}, 0, "2027-01-01T00:00:00Z"},
        {{2024, 2, 28, 23, 59, 59.5001}, 0, "2024-02-29T00:00:00Z"},
        {{2026, 8, 22, 9, 59, 59.96}, 1, "2026-08-22T10:00:00.0Z"},
        {{2026, 8, 22, 9, 59, 59.94}, 1, "2026-08-22T09:59:59.9Z"},
    };
    for (const auto& row : table) EXPECT_EQ(isoText(instantFromCalendar(row.time), row.places), row.text);
}

TEST(IsoText, ShortFormHasAsManyPlacesAsTheMomentNeeds) {
    for (const char* text : {"2026-08-22T10:00:00Z", "2026-08-22T10:00:00.5Z", "2026-08-22T10:00:00.000001Z",
                             "2026-08-22T10:00:30Z"}) {
        EXPECT_EQ(isoTextShort(*parseIsoText(text)), text);
    }
}

TEST(IsoText, TellsAMomentOutsideTheCalendarAsItsJulianDate) {
    for (const double julianDate : {1.0e6, 1.0e7, 1.0e300, -1.0e300}) {
        const Instant time = instantFromJulianDate(julianDate);
        EXPECT_FALSE(isCalendarTime(time));
        EXPECT_EQ(isoText(time, 3).substr(0, 3), "JD ");
        EXPECT_EQ(isoTextShort(time).substr(0, 3), "JD ");
    }
    EXPECT_FALSE(isCalendarTime(instantFromJulianDate(std::numeric_limits<double>::quiet_NaN())));
    EXPECT_FALSE(isCalendarTime(instantFromJulianDate(std::numeric_limits<double>::infinity())));
}

TEST(ParseIsoText, ReadsEveryGoodForm) {
    const struct {
        const char* text;
        const char* moment;
    } table[] = {
        {"2026-08-22", "2026-08-22T00:00:00.000000Z"},
        {"2026-08-22T10:00", "2026-08-22T10:00:00.000000Z"},
        {"2026-08-22 10:00", "2026-08-22T10:00:00.000000Z"},
        {"2026-08-22t10:00:07z", "2026-08-22T10:00:07.000000Z"},
        {"2026-08-22T10:00:00.5", "2026-08-22T10:00:00.500000Z"},
        {"2026-08-22T10:00:00,5Z", "2026-08-22T10:00:00.500000Z"},
        {"2026-08-22T10:00:00.1234567Z", "2026-08-22T10:00:00.123457Z"},
        {"2026-08-22T10:00:00+02:00", "2026-08-22T08:00:00.000000Z"},
        {"2026-08-22T10:00:00-0530", "2026-08-22T15:30:00.000000Z"},
        {"2026-08-22T00:30+01:00", "2026-08-21T23:30:00.000000Z"},
        {"2024-02-29T23:59:59.9999999Z", "2024-03-01T00:00:00.000000Z"},
        {"2016-12-31T23:59:60Z", "2017-01-01T00:00:00.000000Z"},
        {"1900-01-01", "1900-01-01T00:00:00.000000Z"},
        {"9999-12-31T23:59:59Z", "9999-12-31T23:59:59.000000Z"},
        {"2000-02-29", "2000-02-29T00:00:00.000000Z"},
    };
    for (const auto& row : table) {
        const auto time = parseIsoText(row.text);
        ASSERT_TRUE(time) << row.text;
        EXPECT_EQ(isoText(*time, 6), row.moment) << row.text;
    }
}

TEST(ParseIsoText, RefusesWhatIsNoTime) {
    EXPECT_FALSE(parseIsoText(""));
    for (const char* date : {"now",         "2026",        "2026-08",     "2026-8-22",  "26-08-22",
                             "2026/08/22",  "2026-13-01",  "2026-00-10",  "2026-08-32", "2026-08-00",
                             "2026-02-29",  "1900-02-29",  "1899-12-31",  "0000-01-01", "10000-01-01",
                             "2026-08-22Z", " 2026-08-22", "2026-08-22 ", "2O26-08-22", "2026-08-22T"}) {
        EXPECT_FALSE(parseIsoText(date)) << date;
    }
    for (const std::string time :
         {"", "10", "24:00", "10:60", "10:00:61", "10:00:00.", "10:00:00.5.5", "10:00:00ZZ", "10:00:00 Z",
          "10:00:00+2", "10:00:00+02:0", "-1:00", "10:00:+5"}) {
        EXPECT_FALSE(parseIsoText("2026-08-22T" + time)) << time;
    }
}

}  // namespace
}  // namespace vantrace
