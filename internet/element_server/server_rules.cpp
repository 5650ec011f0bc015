#include "internet/element_server/server_rules.h"

#include "core/date_time.h"
#include "core/texts.h"

namespace vantrace {

namespace {

constexpr double restDays = 60.0 / 86400;
/// Half a second: day numbers are whole seconds, but not to the last bit.
constexpr double slackDays = 0.5 / 86400;

FetchError error(FetchFailure failure, std::string message) {
    return {std::move(message), static_cast<std::int16_t>(failure)};
}

}  // namespace

ServerRules::ServerRules(const Clock& clock) : m_clock(clock), m_memory(clock) {}

std::optional<FetchError> ServerRules::refusal(const std::string& folder, const ElementRequest& request) {
    if (request.hasCeased) {
        return error(FetchFailure::ceased,
                     "The server " + request.host + " has no group \"" + request.group + "\" any more");
    }
    if (const auto stopped = m_stopped.find(request.host); stopped != m_stopped.end()) {
        return error(FetchFailure::hostStopped, "The server " + request.host + " answered " +
                                                    stopped->second +
                                                    " and isn't asked again until the program is restarted");
    }
    if (const auto rest = m_resting.find(request.host); rest != m_resting.end()) {
        const double left = rest->second - NowUTC(m_clock);
        // More than the whole rest is left where the clock has been set back.
        if (left > slackDays && left <= restDays + slackDays) {
            return error(FetchFailure::tooEarly, "The server " + request.host +
                                                     " took too long just now; not asked again before " +
                                                     localText(rest->second));
        }
        m_resting.erase(rest);
    }
    const auto wait = m_memory.waitFor(folder, request.url);
    if (!wait) return std::nullopt;
    return error(
        FetchFailure::tooEarly,
        (wait->isForUnknown
             ? "The server " + request.host + " had no such file; not asked again before "
             : "Asked less than two hours ago; the server " + request.host + " has nothing newer before ") +
            localText(wait->notBefore));
}

void ServerRules::noteRequest(const std::string& folder, const ElementRequest& request) {
    m_memory.note(folder, request.url, 0);
}

void ServerRules::noteAnswer(const std::string& folder, const ElementRequest& request,
                             const HttpAnswer& answer, bool saysUnchanged) {
    if (answer.failure != HttpFailure::none) {
        if (answer.failure == HttpFailure::tooSlow) m_resting[request.host] = NowUTC(m_clock) + restDays;
        if (!answer.mayHaveArrived) m_memory.forget(folder, request.url);
        return;
    }
    m_memory.note(folder, request.url, answer.status);
    if (answer.status == 200 || saysUnchanged) return;
    m_stopped.try_emplace(
        request.host, std::to_string(answer.status) + (answer.text.empty() ? "" : " (" + answer.text + ")"));
}

std::string ServerRules::askableAgain(const std::string& folder, const ElementRequest& request) {
    const auto wait = m_memory.waitFor(folder, request.url);
    return localText(wait ? wait->notBefore : NowUTC(m_clock));
}

std::string ServerRules::localText(double utc) const {
    const DateParts local = dateParts(ToLocal(m_clock, utc));
    const DateParts today = dateParts(NowLocal(m_clock));
    const bool isToday = local.year == today.year && local.month == today.month && local.day == today.day;
    return (isToday ? "" : MonthDayText(local.day, local.month) + " ") +
           TimeText(local.hour, local.minute, local.second);
}

}  // namespace vantrace
