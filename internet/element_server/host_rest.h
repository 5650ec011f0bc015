// Hosts that keep callers waiting aren't asked again at once.
#pragma once

#include <map>
#include <optional>
#include <string>

#include "platform/clock.h"
#include "platform/http_client.h"

namespace vantrace {

/// A request that took too long, or that failed below HTTP after more than 5 seconds without any answer,
/// gives its host a minute's rest, so that a job of many files doesn't wait for each of them.
class HostRest {
  public:
    explicit HostRest(const Clock& clock);

    /// Until when the host rests: UTC, a day number. By way of another proxy it is another host: whoever sets
    /// the proxy right is not to wait.
    std::optional<double> until(const std::string& host, const std::optional<HttpProxy>& proxy);
    void note(const std::string& host, const std::optional<HttpProxy>& proxy, const HttpAnswer& answer);

  private:
    const Clock& m_clock;
    std::map<std::string, double> m_until;
};

}  // namespace vantrace
