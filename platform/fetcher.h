// Files from the Internet.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vantrace {

/// Why a fetch failed.
struct FetchError {
    std::string message;
    /// Of HTTP's answers the status, of other failures a number of the fetcher's own; never 0.
    std::int16_t code = 0;
};

/// Each operation returns when the file has been written whole, when the server has said that the file is up
/// to date as it is, or when the fetch has failed; a failed one leaves the file as it was. While one runs
/// windows are painted, but nothing else happens in them. Nothing throws.
class Fetcher {
  public:
    virtual ~Fetcher() = default;

    virtual std::optional<FetchError> FetchToFile(std::string_view url, std::string_view file) = 0;
    /// By way of an HTTP proxy, all of whose words are as the user typed them. Without a user's name there it
    /// isn't told one.
    virtual std::optional<FetchError> FetchToFileViaProxy(std::string_view url, std::string_view file,
                                                          std::string_view proxyHost,
                                                          std::string_view proxyPort,
                                                          std::string_view proxyUser,
                                                          std::string_view proxyPass) = 0;
};

/// For programs that stay off the Internet.
class NoFetcher final : public Fetcher {
  public:
    std::optional<FetchError> FetchToFile(std::string_view, std::string_view) override { return none(); }
    std::optional<FetchError> FetchToFileViaProxy(std::string_view, std::string_view, std::string_view,
                                                  std::string_view, std::string_view,
                                                  std::string_view) override {
        return none();
    }

  private:
    static FetchError none() { return {"This program doesn't fetch", 1}; }
};

}  // namespace vantrace
