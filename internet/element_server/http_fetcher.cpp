#include "internet/element_server/http_fetcher.h"

#include <algorithm>
#include <charconv>
#include <exception>
#include <utility>

#include "core/hosts.h"
#include "core/program_state.h"
#include "core/texts.h"
#include "internet/element_server/part_file.h"
#include "internet/omm/three_line_conversion.h"
#include "orbit/elements/element_reader.h"
#include "platform/file_replacement.h"
#include "platform/text_file.h"

namespace vantrace {

namespace {

constexpr std::size_t longestFileBytes = 64 * 1024 * 1024;
constexpr std::size_t longestNoticeBytes = 4096;
constexpr std::size_t mostRemarks = 20;
constexpr int ok = 200;
constexpr int forbidden = 403;

FetchError error(FetchFailure failure, std::string message) {
    return {std::move(message), static_cast<std::int16_t>(failure)};
}

FetchError errorOf(const HttpAnswer& answer) {
    if (answer.failure != HttpFailure::none) return {answer.text, static_cast<std::int16_t>(answer.failure)};
    return {answer.text.empty() ? "The server's answer" : answer.text,
            static_cast<std::int16_t>(answer.status)};
}

bool isWell(const HttpAnswer& answer) {
    return answer.failure == HttpFailure::none && answer.status == ok;
}

/// Of those that come with 403, the one that says that there is nothing newer than what was fetched before.
bool saysUnchanged(const HttpAnswer& answer, const std::filesystem::path& body) {
    if (answer.failure != HttpFailure::none || answer.status != forbidden) return false;
    try {
        return lowerCased(readTextFile(body, longestNoticeBytes)).find("has not updated since") !=
               std::string::npos;
    } catch (const FileError&) {
        return false;
    }
}

int countSets(std::string_view content) {
    int count = 0;
    readElementSets(content, {[&](ElementSet&&) { ++count; }, [](ElementRemark&&) {}});
    return count;
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
    : m_client(client), m_state(state), m_tell(std::move(tell)), m_rules(clock) {}

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
    if (proxy.host.empty()) return error(FetchFailure::proxyWords, "The proxy has no host");
    if (!isHostName(proxy.host)) {
        return error(FetchFailure::proxyWords,
                     "The proxy's host \"" + proxy.host + "\" is no name of a host");
    }
    if (!isPort(trimmed(proxyPort), proxy.port)) {
        return error(FetchFailure::proxyWords,
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
        return request ? fetchElements(*request, target, proxy) : fetchPlainly(url, target, proxy);
    } catch (const FileError& failure) {
        return FetchError{failure.what(), static_cast<std::int16_t>(HttpFailure::file)};
    } catch (const std::exception& failure) {
        return FetchError{failure.what(), static_cast<std::int16_t>(HttpFailure::other)};
    }
}

std::optional<FetchError> HttpFetcher::fetchPlainly(std::string_view url, const std::string& file,
                                                    const std::optional<HttpProxy>& proxy) {
    const PartFile part(file);
    const HttpAnswer answer = m_client.get({std::string(url), part.path(), HttpRedirects::anyHost, proxy});
    if (!isWell(answer)) return errorOf(answer);
    replaceFile(file, readTextFile(part.path(), longestFileBytes));
    return std::nullopt;
}

std::optional<FetchError> HttpFetcher::fetchElements(const ElementRequest& request, const std::string& file,
                                                     const std::optional<HttpProxy>& proxy) {
    const std::string& folder = m_state.AppPath;
    if (auto refusal = m_rules.refusal(folder, request)) return refusal;
    const PartFile part(file);
    m_rules.noteRequest(folder, request);
    const HttpAnswer answer = m_client.get({request.url, part.path(), HttpRedirects::sameHost, proxy});
    const bool isUnchanged = saysUnchanged(answer, part.path());
    m_rules.noteAnswer(folder, request, answer, isUnchanged);
    if (isUnchanged) {
        if (std::filesystem::exists(file)) return std::nullopt;
        return error(FetchFailure::notKept,
                     "Nothing has changed since the last fetch, says the server, but there is no such file "
                     "here; not asked again before " +
                         m_rules.askableAgain(folder, request));
    }
    if (!isWell(answer)) return errorOf(answer);
    const std::string content = readTextFile(part.path(), longestFileBytes);
    if (request.isForElements) return keepElements(request, file, content);
    replaceFile(file, content);
    return std::nullopt;
}

std::optional<FetchError> HttpFetcher::keepElements(const ElementRequest& request, const std::string& file,
                                                    const std::string& content) {
    const ThreeLineConversion conversion = threeLinesFromMessages(content);
    if (conversion.good > 0) {
        replaceFile(file, conversion.text);
        const std::string name = std::filesystem::path(file).filename().string();
        const std::size_t count = conversion.refused.size();
        const std::size_t listed = std::min(count, mostRemarks);
        for (std::size_t i = 0; i < listed; ++i) m_tell(name + ": left out: " + conversion.refused[i]);
        if (count > listed) m_tell(name + ": left out: " + std::to_string(count - listed) + " more");
        return std::nullopt;
    }
    if (!conversion.hasHeading && countSets(content) > 0) {
        replaceFile(file, content);
        return std::nullopt;
    }
    std::string message = "The server's answer holds no good element set";
    if (!conversion.refused.empty()) message += " (" + conversion.refused.front() + ")";
    return error(FetchFailure::noElements,
                 message + "; not asked again before " + m_rules.askableAgain(m_state.AppPath, request));
}

}  // namespace vantrace
