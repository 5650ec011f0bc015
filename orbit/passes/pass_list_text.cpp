#include "orbit/passes/pass_list_text.h"

#include <array>
#include <cmath>
#include <cstdio>

#include "orbit/elements/element_set.h"

namespace vantrace {

namespace {

void addRecord(std::string& text, const Instant& rise, const Pass& pass, double seconds) {
    const CalendarTime time = calendarTime(rise, 0);
    const auto degrees = [](double radians) {
        return static_cast<int>(std::floor(radians / radiansPerDegree));
    };
    std::array<char, 96> record{};
    std::snprintf(record.data(), record.size(), "%04d%02d%02d%02d%02d%02.0f %d %d %d %.0f", time.year,
                  time.month, time.day, time.hour, time.minute, time.second, degrees(pass.rise.azimuthRad),
                  degrees(pass.set.azimuthRad), degrees(pass.culmination.elevationRad), std::floor(seconds));
    if (!text.empty()) {
        text += ',';
    }
    text += record.data();
}

void addWholeDays(std::string& text, const Pass& pass, const Instant& from, double days,
                  double offsetMinutes) {
    constexpr double lengthOfDayRecord = 86399.0;
    const double offsetDays = offsetMinutes / minutesPerDay;
    const double first = std::floor(dayNumber(from) + offsetDays);
    const double end = dayNumber(from) + days + offsetDays;
    for (double localDay = first; localDay < end; localDay += 1.0) {
        addRecord(text, plusSeconds(instantFromDayNumber(localDay), -offsetMinutes * 60.0), pass,
                  lengthOfDayRecord);
    }
}

}  // namespace

std::string passListText(const PassSearchResult& result, const Instant& from, double days,
                         double localOffsetMinutes) {
    std::string text;
    for (const Pass& pass : result.passes) {
        if (pass.neverSets()) {
            addWholeDays(text, pass, from, days, localOffsetMinutes);
        } else {
            addRecord(text, pass.rise.time, pass, pass.durationS());
        }
    }
    return text;
}

}  // namespace vantrace
