#include "internet/element_server/host_rest.h"

#include "core/date_time.h"

namespace vantrace {

namespace {

constexpr std::chrono::seconds patience{5};
constexpr double restDays = 60.0 / 86400;

/// Says nothing about the next request to the same host.
bool isOfThisFileAlone(HttpFailure failure) {
    return failure == HttpFailure::none || failure == HttpFailure::file || failure == HttpFailure::tooLarge ||
           failure == HttpFailure::busy || failure == HttpFailure::address;
}

std::string keyOf(const std::string& host, const std::optional<HttpProxy>& proxy) {
    return proxy ? host + " by " + proxy->host + ":" + std::to_string(proxy->port) : host;
}

}  // namespace

HostRest::HostRest(const Clock& clock) : m_clock(clock) {}

std::optional<double> HostRest::until(const std::string& host, const std::optional<HttpProxy>& proxy) {
    const auto rest = m_until.find(keyOf(host, proxy));
    if (rest == m_until.end()) return std::nullopt;
    const double left = rest->second - NowUTC(m_clock);
    // More than the whole rest is left where the clock has been set back.
    if (left > slackDays && left <= restDays + slackDays) return rest->second;
    m_until.erase(rest);
    return std::nullopt;
}

void HostRest::note(const std::string& host, const std::optional<HttpProxy>& proxy,
                    const HttpAnswer& answer) {
    if (isOfThisFileAlone(answer.failure)) return;
    const bool isQuick = answer.took <= patience || answer.status != 0;
    if (answer.failure != HttpFailure::tooSlow && isQuick) return;
    m_until[keyOf(host, proxy)] = NowUTC(m_clock) + restDays;
}

}  // namespace vantrace
