#include "app/pictures/fixed_clock.h"

#include <cmath>
#include <ctime>

namespace vantrace {

namespace {

ClockParts partsOf(const std::tm& time) {
    return {time.tm_year + 1900, time.tm_mon + 1, time.tm_mday, time.tm_hour, time.tm_min, time.tm_sec};
}

}  // namespace

ClockReading readingAt(const Instant& time) {
    const Instant epoch = instantFromCalendar({1970, 1, 1, 0, 0, 0.0});
    constexpr double microsecond = 1e-6;
    // A whole second that two doubles hold a little short is still that second.
    const auto seconds = static_cast<std::time_t>(std::floor(secondsBetween(epoch, time) + microsecond));
    std::tm local{};
    std::tm utc{};
    tzset();
    localtime_r(&seconds, &local);
    gmtime_r(&seconds, &utc);
    return {partsOf(local), partsOf(utc), 0};
}

}  // namespace vantrace
