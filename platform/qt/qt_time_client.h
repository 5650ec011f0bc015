// The daytime service by Qt Network.
#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <string_view>

#include "platform/clock.h"
#include "platform/daytime_reply.h"
#include "platform/time_client.h"

namespace vantrace {

/// Sets a clock to an instant; 0 on success, else an errno.
using ClockSetter = std::function<int(UtcTime)>;

/// The machine's own; needs the right to do so (EPERM without).
int setMachineClock(UtcTime time);

/// Counts from the machine's start, also while it sleeps (steady_clock stands still then); nobody sets it.
struct BootClock {
    using duration = std::chrono::nanoseconds;
    using rep = duration::rep;
    using period = duration::period;
    using time_point = std::chrono::time_point<BootClock>;
    static constexpr bool is_steady = true;
    static time_point now();
};

/// Needs a QCoreApplication. Each query has a thread of its own, which ends by itself: a machine that looks
/// for a name for minutes holds nobody up. An answer is carried on by the clock that counts from the
/// machine's start; within 4 seconds a further query of the same host is answered from it. Its way through
/// the net is taken as half of what the connection took to make.
class QtTimeClient final : public TimeClient {
  public:
    /// What QueryTime() returns beside 0.
    enum Failure { noHost = 1, noConnection = 2, noAnswer = 3, badAnswer = 4 };

    explicit QtTimeClient(const Clock& clock, ClockSetter setter = setMachineClock);

    void setHost(std::string_view host) override;
    /// At least 1 second, at most 10 minutes. As it is made: 15.
    void setTimeoutSeconds(int seconds) override;
    int QueryTime() override;
    std::string date() const override;
    std::string timeOfDay() const override;
    /// Beside errors of the setter: EINVAL where the last query failed.
    int SetClock() override;

  private:
    /// The instant of the last good answer, carried on to now.
    UtcTime now() const;
    ClockParts localNow() const;

    const Clock& m_clock;
    const ClockSetter m_setter;
    std::string m_host;
    std::chrono::seconds m_timeout{15};
    bool m_hasAnswer = false;
    bool m_hasLastAnswer = false;
    UtcTime m_told{};
    std::string m_toldBy;
    BootClock::time_point m_toldAt{};
};

}  // namespace vantrace
