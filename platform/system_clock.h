// The machine's own clock.
#pragma once

#include <atomic>
#include <ctime>

#include "platform/clock.h"

namespace vantrace {

/// Local time by the zone that the machine is set to; a change of it is seen within a second.
class SystemClock final : public Clock {
  public:
    ClockReading read() const override;

  private:
    /// The second at which the machine's zone was looked at last.
    mutable std::atomic<std::time_t> m_zoneSeenAt{-1};
};

}  // namespace vantrace
