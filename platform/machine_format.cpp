#include "platform/machine_format.h"

#include <langinfo.h>
#include <locale.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <ctime>
#include <string_view>

namespace vantrace {

namespace {

/// strftime tells nothing of a text that doesn't fit, or that is empty; this is room for any date.
constexpr std::size_t longestText = 256;

std::tm brokenDown(const ClockParts& parts) {
    using namespace std::chrono;
    const sys_days day{year(parts.year) / month(static_cast<unsigned>(parts.month)) /
                       std::chrono::day(static_cast<unsigned>(parts.day))};
    const sys_days newYear{year(parts.year) / January / std::chrono::day(1)};
    std::tm time{};
    time.tm_year = parts.year - 1900;
    time.tm_mon = parts.month - 1;
    time.tm_mday = parts.day;
    time.tm_hour = parts.hour;
    time.tm_min = parts.minute;
    time.tm_sec = parts.second;
    time.tm_wday = static_cast<int>(weekday(day).c_encoding());
    time.tm_yday = static_cast<int>((day - newYear).count());
    time.tm_isdst = -1;
    return time;
}

std::string textBy(const std::string& pattern, const ClockParts& parts, const std::shared_ptr<void>& locale) {
    const std::tm time = brokenDown(parts);
    std::array<char, longestText> text{};
    // Plain English is named, since strftime alone would go by the locale of the process.
    const locale_t plain = locale ? nullptr : newlocale(LC_ALL_MASK, "C", nullptr);
    const std::size_t length = strftime_l(text.data(), text.size(), pattern.c_str(), &time,
                                          locale ? static_cast<locale_t>(locale.get()) : plain);
    if (plain != nullptr) freelocale(plain);
    return {text.data(), length};
}

/// The order of the parts is that of the short date. A date that is written with signs of its own behind the
/// figures, as in East Asia, is a long one already.
std::string longDatePattern(std::string_view date) {
    const auto isPlain = [](char sign) { return sign >= ' ' && sign <= '~'; };
    if (!std::ranges::all_of(date, isPlain)) return std::string(date) + " %A";
    const std::size_t year = std::min(date.find("%Y"), date.find("%y"));
    const std::size_t month = std::min(date.find("%m"), date.find("%b"));
    const std::size_t day = std::min(date.find("%d"), date.find("%e"));
    if (date == "%D" || (month < day && day < year)) return "%A, %B %-d, %Y";
    return MachineFormat().longDatePattern;
}

}  // namespace

std::string MachineFormat::dateText(const ClockParts& parts) const {
    return textBy(datePattern, parts, locale);
}

std::string MachineFormat::timeText(const ClockParts& parts) const {
    return textBy(timePattern, parts, locale);
}

std::string MachineFormat::longDateText(const ClockParts& parts) const {
    return textBy(longDatePattern, parts, locale);
}

std::string MachineFormat::dateTimeText(const ClockParts& parts) const {
    return dateText(parts) + " " + timeText(parts);
}

MachineFormat machineFormatFromEnvironment() {
    MachineFormat format;
    const locale_t locale = newlocale(LC_ALL_MASK, "", nullptr);
    if (locale == nullptr) return format;
    format.locale =
        std::shared_ptr<void>(locale, [](void* held) { freelocale(static_cast<locale_t>(held)); });

    const std::string_view mark = nl_langinfo_l(RADIXCHAR, locale);
    if (mark.size() == 1) format.decimalMark = mark.front();
    // This is the pattern of an environment that asks for nothing; two digits of a year in American order
    // would serve nobody.
    const std::string_view date = nl_langinfo_l(D_FMT, locale);
    if (date != "%m/%d/%y") {
        format.datePattern = date;
        format.timePattern = nl_langinfo_l(T_FMT, locale);
        format.longDatePattern = longDatePattern(date);
    }
    return format;
}

}  // namespace vantrace
