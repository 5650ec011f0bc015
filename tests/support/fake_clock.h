// A clock that stands where it was put.
#pragma once

#include "core/date_time.h"
#include "platform/clock.h"

namespace vantrace {

/// As it is made: 2024-03-20 12:00:00, local time and UTC alike.
class FakeClock final : public Clock {
  public:
    FakeClock() { setUtc({2024, 3, 20, 12, 0, 0}); }

    /// `localMinusUtcMinutes` is what the local time is ahead: 60 for an hour east of Greenwich.
    void setUtc(const ClockParts& utc, int localMinusUtcMinutes = 0) {
        m_reading.utc = utc;
        m_reading.local = shifted(utc, localMinusUtcMinutes * 60);
    }
    void setLocal(const ClockParts& local, int localMinusUtcMinutes = 0) {
        m_reading.local = local;
        m_reading.utc = shifted(local, -localMinusUtcMinutes * 60);
    }
    void setMicroseconds(int microseconds) { m_reading.utcMicroseconds = microseconds; }
    void advanceSeconds(int seconds) {
        m_reading.utc = shifted(m_reading.utc, seconds);
        m_reading.local = shifted(m_reading.local, seconds);
    }

    ClockReading read() const override {
        ++m_reads;
        return m_reading;
    }
    /// How often the clock was read.
    int reads() const { return m_reads; }

  private:
    static ClockParts shifted(ClockParts parts, int seconds) {
        parts.second += seconds;
        return dateParts(packDateTime(parts));
    }

    ClockReading m_reading;
    mutable int m_reads = 0;
};

}  // namespace vantrace
