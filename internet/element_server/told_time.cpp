#include "internet/element_server/told_time.h"

#include "core/date_time.h"
#include "core/texts.h"

namespace vantrace {

std::string toldTime(const Clock& clock, double utc) {
    const DateParts local = dateParts(ToLocal(clock, utc));
    const DateParts today = dateParts(NowLocal(clock));
    const bool isToday = local.year == today.year && local.month == today.month && local.day == today.day;
    return (isToday ? "" : MonthDayText(local.day, local.month) + " ") +
           TimeText(local.hour, local.minute, local.second);
}

}  // namespace vantrace
