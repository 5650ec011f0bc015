// What the element server asks of programs that fetch from it.
#pragma once

#include <map>
#include <optional>
#include <string>

#include "internet/element_server/element_request.h"
#include "internet/element_server/request_memory.h"
#include "platform/clock.h"
#include "platform/fetcher.h"
#include "platform/http_client.h"

namespace vantrace {

/// Failures of a fetch that come from neither HTTP nor the net (those are in platform/http_client.h).
enum class FetchFailure : std::int16_t {
    proxyWords = 20,   ///< host or port of the proxy make no sense
    tooEarly = 21,     ///< the address may not be asked yet
    hostStopped = 22,  ///< the host isn't asked any more in this run
    ceased = 23,       ///< the server has dropped the group
    noElements = 24,   ///< the answer holds no good element set
    notKept = 25,      ///< up to date, says the server, but the file isn't there
};

FetchError fetchError(FetchFailure failure, std::string message);

/// The rules are those of https://celestrak.org/usage-policy.php: an address is asked at most once in two
/// hours, since nothing is newer before; after any answer but 200, or the 403 that says that nothing has
/// changed, the host isn't asked again until the program ends, also where that answer broke off.
class ServerRules {
  public:
    explicit ServerRules(const Clock& clock);

    /// Why this is not asked now, told to the user; nothing where it may be.
    std::optional<FetchError> refusal(const std::string& folder, const ElementRequest& request);
    /// Just before it is asked: a program that is killed then has asked.
    void noteRequest(const std::string& folder, const ElementRequest& request);
    void noteAnswer(const std::string& folder, const ElementRequest& request, const HttpAnswer& answer,
                    bool saysUnchanged);
    /// The answer sent on to another address of the host, which was asked in its place.
    void noteSentOn(const std::string& folder, const ElementRequest& request, const HttpAnswer& lastAnswer);
    /// The answer was one of 200, but there was no good set in it.
    void noteUseless(const std::string& folder, const ElementRequest& request);
    /// The answer was one of 200, but its file couldn't be written.
    void noteUnkept(const std::string& folder, const ElementRequest& request);
    /// What a failure has for its consequence, to be put behind its words: "; not asked again before
    /// 08:18:38" and its like. Empty where it has none.
    std::string consequence(const std::string& folder, const ElementRequest& request);

  private:
    const Clock& m_clock;
    RequestMemory m_memory;
    /// Why each of them isn't asked any more.
    std::map<std::string, std::string> m_stopped;
};

}  // namespace vantrace
