#include "platform/system_clock.h"

#include <ctime>

namespace vantrace {

namespace {

ClockParts partsOf(const std::tm& time) {
    return {time.tm_year + 1900, time.tm_mon + 1, time.tm_mday, time.tm_hour, time.tm_min, time.tm_sec};
}

}  // namespace

ClockReading SystemClock::read() const {
    std::timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    // localtime_r alone would keep the zone that it found first, also when the machine's is changed
    // meanwhile. Once a second is often enough to look: it costs more than all the rest.
    if (m_zoneSeenAt.exchange(now.tv_sec, std::memory_order_relaxed) != now.tv_sec) tzset();
    std::tm local{};
    std::tm utc{};
    localtime_r(&now.tv_sec, &local);
    gmtime_r(&now.tv_sec, &utc);
    return {partsOf(local), partsOf(utc), static_cast<int>(now.tv_nsec / 1000)};
}

}  // namespace vantrace
