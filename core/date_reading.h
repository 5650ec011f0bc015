// Days and times as people write them in English.
#pragma once

#include <string_view>

namespace vantrace {

/// A day of a year that isn't told.
struct MonthDay {
    int month = 1;
    int day = 1;

    friend bool operator==(const MonthDay&, const MonthDay&) = default;
};

struct TimeOfDay {
    int hour = 0;
    int minute = 0;
    int second = 0;

    friend bool operator==(const TimeOfDay&, const TimeOfDay&) = default;
};

/// A day and a month's name in either order: "05 JAN", "5 January", "Jan 5", "5-Jan", "5Jan". Letters in any
/// case; of the name at least three. Between the two, blanks, tabs and the signs "-/.,". Throws
/// std::invalid_argument for all else and for a day that the month never has.
MonthDay readMonthDay(std::string_view text);

/// "21:05:33", "21:05", "9:05:33 PM", "9pm". Throws std::invalid_argument for all else.
TimeOfDay readTimeOfDay(std::string_view text);

}  // namespace vantrace
