// The machine's own clock.
#pragma once

#include "platform/clock.h"

namespace vantrace {

/// Local time by the zone that the machine is set to at the moment of the reading.
class SystemClock final : public Clock {
  public:
    ClockReading read() const override;
};

}  // namespace vantrace
