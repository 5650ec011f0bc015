// The time of a server on the Internet, and the computer's clock.
#pragma once

#include <string>
#include <string_view>

namespace vantrace {

/// Asks over TCP port 13, the daytime service. Nothing throws.
class TimeClient {
  public:
    virtual ~TimeClient() = default;

    /// A name or an address, with ":port" where it isn't 13.
    virtual void setHost(std::string_view host) = 0;
    virtual void setTimeoutSeconds(int seconds) = 0;
    /// Asks the server; 0 on success. Waits as long as the limit says, while windows are painted and nothing
    /// else happens in them.
    virtual int QueryTime() = 0;
    /// What the server told at the last query that succeeded, carried on to now and in local time:
    /// "mm/dd/yyyy" and "hh:mm:ss". Empty before there was one.
    virtual std::string date() const = 0;
    virtual std::string timeOfDay() const = 0;
    /// Sets the computer's clock by the last query; 0 on success. Fails when that query failed, or when the
    /// system doesn't let this user do it.
    virtual int SetClock() = 0;
};

/// For programs that stay off the Internet.
class NoTimeClient final : public TimeClient {
  public:
    void setHost(std::string_view) override {}
    void setTimeoutSeconds(int) override {}
    int QueryTime() override { return 1; }
    std::string date() const override { return {}; }
    std::string timeOfDay() const override { return {}; }
    int SetClock() override { return 1; }
};

}  // namespace vantrace
