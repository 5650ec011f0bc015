// Pages of the Internet, over HTTP.
#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

namespace vantrace {

/// An HTTP proxy. Without a user's name it isn't told one, nor a password.
struct HttpProxy {
    std::string host;
    std::uint16_t port = 0;
    std::string user;
    std::string password;
};

struct HttpRequest {
    /// "http://..." or "https://...".
    std::string url;
    /// Takes the body of the answer, whatever its status; what was in it is lost.
    std::filesystem::path file;
    std::optional<HttpProxy> proxy;
};

/// What went wrong below HTTP. The numbers are told to the user; no status of HTTP is among them.
enum class HttpFailure : std::int16_t {
    none = 0,
    address = 1,   ///< no address that can be fetched
    hostName = 2,  ///< nobody knows the host
    refused = 3,   ///< the host takes no connection
    closed = 4,    ///< the connection broke, or the body is shorter than it was said to be
    tooSlow = 5,
    trust = 6,  ///< TLS: the certificate, or no common ground
    proxy = 7,
    tooLarge = 8,
    redirect = 9,  ///< one that isn't followed, or too many
    file = 10,     ///< the body can't be written
    protocol = 11,
    busy = 12,  ///< another request is under way
    other = 13,
};

namespace http_status {

inline constexpr int ok = 200;
inline constexpr int forbidden = 403;

}  // namespace http_status

struct HttpAnswer {
    /// None: an answer came, and its body is in the file, whole.
    HttpFailure failure = HttpFailure::none;
    /// 0 without an answer. One that breaks off has a failure and a status.
    int status = 0;
    /// The words that came with the status, or what went wrong. Printable, at most some 300 bytes.
    std::string text;
    /// Where a redirect (301, 302, 303, 307, 308) leads: a whole address, in signs of ASCII, of whatever
    /// scheme. To another host it has no user's name and no password.
    std::string location;
    /// False where the request never came as far as the host; where that isn't known, true.
    bool mayHaveArrived = false;
    std::chrono::milliseconds took{0};
};

class HttpClient {
  public:
    virtual ~HttpClient() = default;

    /// Asks once, and follows no redirect. Returns when all is there or has failed. While it waits windows
    /// are painted, but nothing else happens in them. Throws nothing.
    virtual HttpAnswer get(const HttpRequest& request) = 0;
};

}  // namespace vantrace
