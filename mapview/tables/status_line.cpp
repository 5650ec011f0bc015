#include "mapview/tables/status_line.h"

#include <array>

#include "core/date_time.h"
#include "core/error_label.h"
#include "core/numbers.h"
#include "core/program_state.h"
#include "core/services.h"
#include "core/texts.h"
#include "mapview/tables/map_time.h"
#include "mapview/world_view_form.h"

namespace vantrace {

namespace {

struct ShownTime {
    std::string local;
    std::string utc;
    int utcHour = 0;
    int utcMinute = 0;
};

ShownTime realTime(const ClockReading& now, const Services& services, ErrorLabel& label) {
    ShownTime shown;
    shown.utcHour = now.utc.hour;
    shown.utcMinute = now.utc.minute;
    label.step([&] { shown.local = services.format.timeText(now.local); });
    label.step([&] { shown.utc = TimeText(now.utc.hour, now.utc.minute, now.local.second); });
    return shown;
}

ShownTime simulatedTime(const ClockParts& local, const Services& services, ErrorLabel& label) {
    ShownTime shown;
    label.step([&] { shown.local = TimeText(local.hour, local.minute, local.second); });
    label.step([&] {
        const DateParts utc = dateParts(ToUTC(services.clock, packDateTime(local)));
        shown.utcHour = utc.hour;
        shown.utcMinute = utc.minute;
    });
    label.step([&] { shown.utc = TimeText(shown.utcHour, shown.utcMinute, local.second); });
    return shown;
}

}  // namespace

int dayOfYear(const ClockParts& date) {
    constexpr std::array<int, 12> daysBeforeMonth{0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334};
    const int leapDay = date.month > 2 && date.year % 4 == 0 ? 1 : 0;
    return date.day + daysBeforeMonth.at(static_cast<std::size_t>(date.month - 1)) + leapDay;
}

std::string composeStatusLine(const WorldViewForm& form, const ProgramState& state, const Services& services,
                              ErrorLabel& label, int inRange) {
    const ClockReading now = services.clock.read();
    const ShownTime shown = form.TimeWarp == 0 ? realTime(now, services, label)
                                               : simulatedTime(mapTime(form, services), services, label);
    std::string dayNumber;
    label.step([&] {
        const double day = dayOfYear(now.local) + shown.utcHour / 24.0 + shown.utcMinute / 60.0 / 24.0 +
                           now.local.second / 60.0 / 60.0 / 24.0;
        dayNumber = formatNumber(day, "000.0000000", services.format.decimalMark);
    });
    return std::to_string(inRange) + " out of " + std::to_string(state.FavouriteCount) +
           " Satellites in range - Local : " + shown.local + " - UTC : " + shown.utc + " (" + dayNumber + ")";
}

}  // namespace vantrace
