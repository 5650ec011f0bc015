// The clock of the machine, as the program sees it.
#pragma once

namespace vantrace {

/// A calendar date and a time of day. month 1 to 12, day 1 to 31; the proleptic Gregorian calendar.
struct ClockParts {
    int year = 1899;
    int month = 12;
    int day = 30;
    int hour = 0;
    int minute = 0;
    int second = 0;

    friend bool operator==(const ClockParts&, const ClockParts&) = default;
};

/// One instant, told in local time and in UTC alike.
struct ClockReading {
    ClockParts local;
    ClockParts utc;
    /// Microseconds past the whole second, 0 to 999999; the same for both.
    int utcMicroseconds = 0;
};

class Clock {
  public:
    virtual ~Clock() = default;

    /// Reads the clock once, so that the local time and the UTC of a reading never lie a tick apart. Doesn't
    /// fail.
    virtual ClockReading read() const = 0;
};

}  // namespace vantrace
