// The program's fetcher: files over HTTP, whole or not at all, and the element server by its own rules.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "internet/element_server/host_rest.h"
#include "internet/element_server/server_rules.h"
#include "platform/clock.h"
#include "platform/fetcher.h"
#include "platform/http_client.h"

namespace vantrace {

struct ProgramState;
struct ThreeLineConversion;

/// A body goes into a file beside the one that is wanted ("NAME.xxxxxx.part"), is looked at, and takes its
/// place by replaceFile(), so that whoever kills the program finds the old file or the new one, whole. Any
/// status but 200 is a failure, with the server's words and that status.
///
/// Addresses of the element host (element_request.h says which) are asked in the server's present form and by
/// its rules (server_rules.h). An answer that holds messages of mean elements becomes three-line sets; one
/// that holds element sets and nothing else is taken as it stands; any other replaces nothing. The 403 by
/// which the server says that nothing has changed since the last fetch is a success that leaves the file as
/// it was, and a failure where there is no such file. One redirect is followed there, to the same host and to
/// an address that may be asked now.
///
/// From other hosts, and of other pages of that one, whatever comes with status 200 replaces the file.
/// Redirects of other hosts are followed to any but the element host, up to ten of them. None is followed
/// from https to http. A host that was slow to fail rests (host_rest.h).
class HttpFetcher final : public Fetcher {
  public:
    /// What the user should know although the fetch succeeded, such as a set that was left out.
    using Tell = std::function<void(std::string_view)>;

    /// The state gives the program folder, where hosts.dat is read and the requests are remembered. All
    /// outlive this.
    HttpFetcher(HttpClient& client, const Clock& clock, const ProgramState& state, Tell tell);

    std::optional<FetchError> FetchToFile(std::string_view url, std::string_view file) override;
    std::optional<FetchError> FetchToFileViaProxy(std::string_view url, std::string_view file,
                                                  std::string_view proxyHost, std::string_view proxyPort,
                                                  std::string_view proxyUser,
                                                  std::string_view proxyPass) override;

  private:
    std::optional<FetchError> fetch(std::string_view url, std::string_view file,
                                    const std::optional<HttpProxy>& proxy);
    std::optional<FetchError> fetchElements(const ElementRequest& request, const std::string& file,
                                            const std::optional<HttpProxy>& proxy);
    std::optional<FetchError> fetchPlainly(const std::string& url, const std::string& file,
                                           const std::optional<HttpProxy>& proxy);
    /// Of an answer of the element host that came whole.
    std::optional<FetchError> keep(const ElementRequest& request, const std::string& file,
                                   const std::filesystem::path& body);
    std::optional<FetchError> keepElements(const ElementRequest& request, const std::string& file,
                                           const std::string& content);
    /// What wasn't kept of an answer that is kept.
    void tellLeftOut(const std::string& file, const ThreeLineConversion& conversion) const;
    /// Of a plain host, with the redirects that are followed.
    HttpAnswer askOn(std::string url, const std::filesystem::path& body,
                     const std::optional<HttpProxy>& proxy);
    /// One request, noted where its host has to rest after it.
    HttpAnswer ask(const std::string& url, const std::filesystem::path& body,
                   const std::optional<HttpProxy>& proxy);
    /// Why the host of an address isn't asked just now; empty where it may be.
    std::string restReason(const std::string& url, const std::optional<HttpProxy>& proxy);
    /// Why a redirect of a plain host isn't followed; empty where it is.
    std::string objectionTo(const std::string& from, const std::string& target,
                            const std::optional<HttpProxy>& proxy);

    HttpClient& m_client;
    const ProgramState& m_state;
    const Tell m_tell;
    const Clock& m_clock;
    ServerRules m_rules;
    HostRest m_rest;
};

}  // namespace vantrace
