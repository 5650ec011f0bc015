#include "internet/element_server/http_fetcher.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <exception>
#include <utility>

#include "core/hosts.h"
#include "core/program_state.h"
#include "core/texts.h"
#include "internet/element_server/kept_sets.h"
#include "internet/element_server/part_file.h"
#include "internet/element_server/told_time.h"
#include "internet/element_server/web_address.h"
#include "internet/omm/three_line_conversion.h"
#include "platform/file_replacement.h"
#include "platform/text_file.h"

namespace vantrace {

namespace {

constexpr std::size_t longestFileBytes = std::size_t{64} * 1024 * 1024;
constexpr std::size_t longestNoticeBytes = 4096;
constexpr std::size_t mostRemarks = 20;
constexpr int mostRedirects = 10;
/// Of all the redirects in front of an answer.
constexpr std::chrono::minutes longestWay{1};

FetchError errorOf(const HttpAnswer& answer) {
    constexpr std::size_t longestLocation = 200;
    if (answer.failure != HttpFailure::none) return {answer.text, static_cast<std::int16_t>(answer.failure)};
    std::string text = answer.text.empty() ? "The server's answer" : answer.text;
    if (!answer.location.empty()) text += ", to " + answer.location.substr(0, longestLocation);
    return {text, static_cast<std::int16_t>(answer.status)};
}

bool isWell(const HttpAnswer& answer) {
    return answer.failure == HttpFailure::none && answer.status == http_status::ok;
}

/// In lower case, with one blank for each run of blanks and line ends.
std::string folded(std::string_view text) {
    std::string result;
    for (const char sign : lowerCased(text)) {
        const bool isBlank = sign == ' ' || (sign >= '\t' && sign <= '\r');
        if (!isBlank) result += sign;
        if (isBlank && !result.ends_with(' ')) result += ' ';
    }
    return result;
}

/// Of those that come with 403, the one that says that there is nothing newer than what was fetched before.
bool saysUnchanged(const HttpAnswer& answer, const std::filesystem::path& body) {
    if (answer.failure != HttpFailure::none || answer.status != http_status::forbidden) return false;
    constexpr std::array<std::string_view, 4> phrases{"not updated since", "not been updated since",
                                                      "not changed since", "not been changed since"};
    try {
        const std::string text = folded(readTextFile(body, longestNoticeBytes));
        return std::ranges::any_of(
            phrases, [&](std::string_view phrase) { return text.find(phrase) != std::string::npos; });
    } catch (const FileError&) {
        return false;
    }
}

std::string hostOf(const std::string& url) {
    const auto address = webAddress(url);
    return address ? address->host : url;
}

bool losesEncryption(const std::string& from, const std::string& target) {
    const auto before = webAddress(from);
    const auto after = webAddress(target);
    return before && after && before->isEncrypted && !after->isEncrypted;
}

/// Where a redirect of the element host may be followed to: an address of the very same host.
std::optional<ElementRequest> sentOnWithin(const ElementRequest& request, const HttpAnswer& answer) {
    const auto target = webAddress(answer.location);
    if (answer.failure != HttpFailure::none || !target || hostOf(request.url) != target->host ||
        losesEncryption(request.url, answer.location)) {
        return std::nullopt;
    }
    ElementRequest next = request;
    next.url = answer.location.substr(0, answer.location.find('#'));
    return next;
}

bool isPort(std::string_view text, std::uint16_t& port) {
    const auto [stop, failure] = std::from_chars(text.data(), text.data() + text.size(), port);
    return failure == std::errc() && stop == text.data() + text.size() && port != 0;
}

bool isHostName(std::string_view text) {
    return !text.empty() && std::ranges::none_of(text, [](char sign) {
        return (sign >= '\0' && sign <= ' ') || sign == '/' || sign == '@' || sign == '?' || sign == '#';
    });
}

}  // namespace

HttpFetcher::HttpFetcher(HttpClient& client, const Clock& clock, const ProgramState& state, Tell tell)
    : m_client(client),
      m_state(state),
      m_tell(std::move(tell)),
      m_clock(clock),
      m_rules(clock),
      m_rest(clock) {}

std::optional<FetchError> HttpFetcher::FetchToFile(std::string_view url, std::string_view file) {
    return fetch(url, file, std::nullopt);
}

std::optional<FetchError> HttpFetcher::FetchToFileViaProxy(std::string_view url, std::string_view file,
                                                           std::string_view proxyHost,
                                                           std::string_view proxyPort,
                                                           std::string_view proxyUser,
                                                           std::string_view proxyPass) {
    HttpProxy proxy;
    proxy.host = trimmed(proxyHost);
    if (proxy.host.starts_with('[') && proxy.host.ends_with(']')) {
        proxy.host = proxy.host.substr(1, proxy.host.size() - 2);
    }
    if (proxy.host.empty()) return fetchError(FetchFailure::proxyWords, "The proxy has no host");
    if (!isHostName(proxy.host)) {
        return fetchError(FetchFailure::proxyWords,
                          "The proxy's host \"" + proxy.host + "\" is no name of a host");
    }
    if (!isPort(trimmed(proxyPort), proxy.port)) {
        return fetchError(FetchFailure::proxyWords,
                          "The proxy's port \"" + std::string(proxyPort) + "\" is no number from 1 to 65535");
    }
    proxy.user = proxyUser;
    if (!proxy.user.empty()) proxy.password = proxyPass;
    return fetch(url, file, proxy);
}

std::optional<FetchError> HttpFetcher::fetch(std::string_view url, std::string_view file,
                                             const std::optional<HttpProxy>& proxy) {
    try {
        const auto request = elementRequest(url, readHosts(m_state).elementHost);
        const std::string target(file);
        return request ? fetchElements(*request, target, proxy)
                       : fetchPlainly(std::string(url), target, proxy);
    } catch (const FileError& failure) {
        return FetchError{failure.what(), static_cast<std::int16_t>(HttpFailure::file)};
    } catch (const std::exception& failure) {
        return FetchError{failure.what(), static_cast<std::int16_t>(HttpFailure::other)};
    }
}

std::string HttpFetcher::restReason(const std::string& url, const std::optional<HttpProxy>& proxy) {
    const std::string host = hostOf(url);
    const auto until = m_rest.until(host, proxy);
    if (!until) return {};
    return "The server " + host + " took too long just now; not asked again before " +
           toldTime(m_clock, *until);
}

HttpAnswer HttpFetcher::ask(const std::string& url, const std::filesystem::path& body,
                            const std::optional<HttpProxy>& proxy) {
    HttpAnswer answer = m_client.get({url, body, proxy});
    m_rest.note(hostOf(url), proxy, answer);
    return answer;
}

std::string HttpFetcher::objectionTo(const std::string& from, const std::string& target,
                                     const std::optional<HttpProxy>& proxy) {
    if (!webAddress(target)) return "The server sends on to what can't be fetched";
    if (losesEncryption(from, target)) return "The server sends on to an address without encryption";
    if (elementRequest(target, readHosts(m_state).elementHost)) {
        return "The server sends on to " + hostOf(target) + ", which is asked by its own rules only";
    }
    return restReason(target, proxy);
}

HttpAnswer HttpFetcher::askOn(std::string url, const std::filesystem::path& body,
                              const std::optional<HttpProxy>& proxy) {
    std::chrono::milliseconds way{0};
    for (int redirects = 0;; ++redirects) {
        HttpAnswer answer = ask(url, body, proxy);
        if (answer.failure != HttpFailure::none || answer.location.empty()) return answer;
        way += answer.took;
        std::string objection = objectionTo(url, answer.location, proxy);
        if (redirects == mostRedirects || way > longestWay) objection = "The server sends on and on";
        if (!objection.empty()) {
            answer.failure = HttpFailure::redirect;
            answer.text = objection;
            return answer;
        }
        url = answer.location;
    }
}

std::optional<FetchError> HttpFetcher::fetchPlainly(const std::string& url, const std::string& file,
                                                    const std::optional<HttpProxy>& proxy) {
    if (auto reason = restReason(url, proxy); !reason.empty())
        return fetchError(FetchFailure::tooEarly, reason);
    const PartFile part(file);
    const HttpAnswer answer = askOn(url, part.path(), proxy);
    if (!isWell(answer)) return errorOf(answer);
    replaceFile(file, readTextFile(part.path(), longestFileBytes));
    return std::nullopt;
}

std::optional<FetchError> HttpFetcher::fetchElements(const ElementRequest& request, const std::string& file,
                                                     const std::optional<HttpProxy>& proxy) {
    const std::string& folder = m_state.AppPath;
    if (auto refusal = m_rules.refusal(folder, request)) return refusal;
    if (auto reason = restReason(request.url, proxy); !reason.empty()) {
        return fetchError(FetchFailure::tooEarly, reason);
    }
    const PartFile part(file);
    m_rules.noteRequest(folder, request);
    HttpAnswer answer = ask(request.url, part.path(), proxy);
    const auto sentOn = sentOnWithin(request, answer);
    if (sentOn) {
        m_rules.noteSentOn(folder, request, answer);
        if (auto refusal = m_rules.refusal(folder, *sentOn)) return refusal;
        m_rules.noteRequest(folder, *sentOn);
        answer = ask(sentOn->url, part.path(), proxy);
        m_rules.noteSentOn(folder, request, answer);
    }
    const bool isUnchanged = saysUnchanged(answer, part.path());
    m_rules.noteAnswer(folder, sentOn.value_or(request), answer, isUnchanged);
    if (isUnchanged) {
        if (std::filesystem::exists(file)) return std::nullopt;
        return fetchError(
            FetchFailure::notKept,
            "Nothing has changed since the last fetch, says the server, but there is no such file "
            "here" +
                m_rules.consequence(folder, request));
    }
    if (!isWell(answer)) {
        FetchError failure = errorOf(answer);
        failure.message += m_rules.consequence(folder, request);
        return failure;
    }
    return keep(request, file, part.path());
}

std::optional<FetchError> HttpFetcher::keep(const ElementRequest& request, const std::string& file,
                                            const std::filesystem::path& body) {
    try {
        const std::string content = readTextFile(body, longestFileBytes);
        if (request.isForElements) return keepElements(request, file, content);
        replaceFile(file, content);
        return std::nullopt;
    } catch (const FileError& failure) {
        m_rules.noteUnkept(m_state.AppPath, request);
        return FetchError{failure.what() + m_rules.consequence(m_state.AppPath, request),
                          static_cast<std::int16_t>(HttpFailure::file)};
    }
}

void HttpFetcher::tellLeftOut(const std::string& file, const ThreeLineConversion& conversion) const {
    const std::string start = std::filesystem::path(file).filename().string() + ": left out: ";
    const std::size_t listed = std::min(conversion.refused.size(), mostRemarks);
    for (std::size_t i = 0; i < listed; ++i) m_tell(start + conversion.refused[i]);
    const std::size_t more = conversion.refused.size() - listed + conversion.furtherRefused;
    if (more > 0) m_tell(start + std::to_string(more) + " more");
}

std::optional<FetchError> HttpFetcher::keepElements(const ElementRequest& request, const std::string& file,
                                                    const std::string& content) {
    const ThreeLineConversion conversion = threeLinesFromMessages(content);
    if (conversion.good > 0) {
        replaceFile(file, conversion.text);
        tellLeftOut(file, conversion);
        return std::nullopt;
    }
    if (!conversion.hasHeading && holdsSetsAlone(content)) {
        replaceFile(file, content);
        return std::nullopt;
    }
    m_rules.noteUseless(m_state.AppPath, request);
    std::string message = "The server's answer holds no good element set";
    if (!conversion.refused.empty()) message += " (" + conversion.refused.front() + ")";
    return fetchError(FetchFailure::noElements, message + m_rules.consequence(m_state.AppPath, request));
}

}  // namespace vantrace
