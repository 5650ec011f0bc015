// How this machine writes numbers, dates and times.
#pragma once

#include <memory>
#include <string>

#include "platform/clock.h"

namespace vantrace {

/// A value that is handed in where texts are made, so that every machine's format can be had on any machine.
/// As it is made it writes ISO: "2024-03-20", "12:00:00", "2024-03-20 12:00:00".
struct MachineFormat {
    /// The mark between whole part and decimals.
    char decimalMark = '.';
    /// Patterns of strftime for date and time of day.
    std::string datePattern = "%Y-%m-%d";
    std::string timePattern = "%H:%M:%S";
    /// Weekday, day, name of the month, year.
    std::string longDatePattern = "%A, %-d %B %Y";
    /// The locale_t by whose words the patterns are read; none stands for plain English.
    std::shared_ptr<void> locale;

    std::string dateText(const ClockParts& parts) const;
    std::string timeText(const ClockParts& parts) const;
    /// The date in words: "Wednesday, 20 March 2024".
    std::string longDateText(const ClockParts& parts) const;
    /// Date, a blank, time.
    std::string dateTimeText(const ClockParts& parts) const;
};

/// The format that the environment asks for (LC_ALL, LC_NUMERIC, LC_TIME, LANG); the one above where it asks
/// for none, or for one that isn't installed. The long date is in the environment's words, with day, month
/// and year in the order of its short one; the platform keeps no pattern for it. The locale of the process is
/// neither read nor changed.
MachineFormat machineFormatFromEnvironment();

}  // namespace vantrace
