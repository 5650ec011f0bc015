#include "internet/element_server/server_rules.h"

#include "internet/element_server/told_time.h"

namespace vantrace {

namespace {

/// Why an address has to wait, as far as its last answer tells.
std::string reasonOfWait(const std::string& host, int status) {
    if (RequestMemory::isUnknown(status)) return "The server " + host + " had no such file";
    const std::string asked = "Asked less than two hours ago";
    switch (status) {
        case http_status::ok:
        // Another 403 stops the host, and then this isn't told.
        case http_status::forbidden:
            return asked + "; the server " + host + " has nothing newer yet";
        case RequestMemory::unanswered:
            return asked + ", without a whole answer of the server " + host;
        case RequestMemory::useless:
            return asked + ", and the answer of the server " + host + " held no good element set";
        case RequestMemory::unkept:
            return asked + ", and the answer of the server " + host + " couldn't be kept";
        default:
            return asked + ", and the server " + host + " answered " + std::to_string(status);
    }
}

}  // namespace

FetchError fetchError(FetchFailure failure, std::string message) {
    return {std::move(message), static_cast<std::int16_t>(failure)};
}

ServerRules::ServerRules(const Clock& clock) : m_clock(clock), m_memory(clock) {}

std::optional<FetchError> ServerRules::refusal(const std::string& folder, const ElementRequest& request) {
    if (request.hasCeased) {
        return fetchError(FetchFailure::ceased,
                          "The server " + request.host + " has no group \"" + request.group + "\" any more");
    }
    if (const auto stopped = m_stopped.find(request.host); stopped != m_stopped.end()) {
        return fetchError(FetchFailure::hostStopped,
                          "The server " + request.host + " answered " + stopped->second +
                              " and isn't asked again until the program is restarted");
    }
    const auto wait = m_memory.waitFor(folder, request.url);
    if (!wait) return std::nullopt;
    return fetchError(FetchFailure::tooEarly, reasonOfWait(request.host, wait->status) +
                                                  "; not asked again before " +
                                                  toldTime(m_clock, wait->notBefore));
}

void ServerRules::noteRequest(const std::string& folder, const ElementRequest& request) {
    m_memory.note(folder, request.url, RequestMemory::unanswered);
}

void ServerRules::noteAnswer(const std::string& folder, const ElementRequest& request,
                             const HttpAnswer& answer, bool saysUnchanged) {
    const bool isFailure = answer.failure != HttpFailure::none;
    if (!answer.mayHaveArrived) m_memory.forget(folder, request.url);
    // A proxy's refusal isn't the host's answer.
    if (answer.status == 0 || answer.failure == HttpFailure::proxy) return;
    if (!isFailure || answer.status != http_status::ok) m_memory.note(folder, request.url, answer.status);
    if (answer.status == http_status::ok || saysUnchanged) return;
    const bool hasWords = !isFailure && !answer.text.empty();
    m_stopped.try_emplace(request.host,
                          std::to_string(answer.status) + (hasWords ? " (" + answer.text + ")" : ""));
}

void ServerRules::noteSentOn(const std::string& folder, const ElementRequest& request,
                             const HttpAnswer& lastAnswer) {
    const bool isWhole = lastAnswer.failure == HttpFailure::none;
    m_memory.note(folder, request.url, isWhole ? lastAnswer.status : RequestMemory::unanswered);
}

void ServerRules::noteUseless(const std::string& folder, const ElementRequest& request) {
    m_memory.note(folder, request.url, RequestMemory::useless);
}

void ServerRules::noteUnkept(const std::string& folder, const ElementRequest& request) {
    m_memory.note(folder, request.url, RequestMemory::unkept);
}

std::string ServerRules::consequence(const std::string& folder, const ElementRequest& request) {
    const auto wait = m_memory.waitFor(folder, request.url);
    std::string time = wait ? "; not asked again before " + toldTime(m_clock, wait->notBefore) : "";
    if (!m_stopped.contains(request.host)) return time;
    const std::string stop =
        "; the server " + request.host + " isn't asked again until the program is restarted";
    return wait && RequestMemory::isUnknown(wait->status) ? time + stop : stop;
}

}  // namespace vantrace
