// A clock that stands where the user put it.
#pragma once

#include "orbit/instant.h"
#include "platform/clock.h"

namespace vantrace {

class FixedClock final : public Clock {
  public:
    explicit FixedClock(const ClockReading& reading) : m_reading(reading) {}
    ClockReading read() const override { return m_reading; }

  private:
    ClockReading m_reading;
};

/// What a clock of this machine, with its time zone, would read at a time. The whole seconds of it: the
/// fraction is dropped.
ClockReading readingAt(const Instant& time);

}  // namespace vantrace
