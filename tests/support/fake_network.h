// The Internet and the listening programs of the machine, as a test wants them.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/fetcher.h"
#include "platform/line_publisher.h"
#include "platform/time_client.h"

namespace vantrace {

/// Writes down what is asked for, and has the test write the file.
class FakeFetcher final : public Fetcher {
  public:
    struct Request {
        std::string url;
        std::string file;
        /// Host, port, user, password; nothing without a proxy.
        std::vector<std::string> proxy;
    };

    std::optional<FetchError> FetchToFile(std::string_view url, std::string_view file) override {
        return answer({std::string(url), std::string(file), {}});
    }
    std::optional<FetchError> FetchToFileViaProxy(std::string_view url, std::string_view file,
                                                  std::string_view proxyHost, std::string_view proxyPort,
                                                  std::string_view proxyUser,
                                                  std::string_view proxyPass) override {
        return answer({std::string(url),
                       std::string(file),
                       {std::string(proxyHost), std::string(proxyPort), std::string(proxyUser),
                        std::string(proxyPass)}});
    }

    std::vector<Request> requests;
    /// What happens at a request; without one nothing is written and nothing fails.
    std::function<std::optional<FetchError>(const Request&)> onFetch;

  private:
    std::optional<FetchError> answer(Request request) {
        requests.push_back(request);
        return onFetch ? onFetch(request) : std::nullopt;
    }
};

class FakeTimeClient final : public TimeClient {
  public:
    void setHost(std::string_view value) override { host = value; }
    void setTimeoutSeconds(int value) override { timeoutSeconds = value; }
    int QueryTime() override {
        ++queries;
        return queryResult;
    }
    std::string date() const override { return dateText; }
    std::string timeOfDay() const override { return timeText; }
    int SetClock() override {
        ++settings;
        return setResult;
    }

    std::string host;
    int timeoutSeconds = 0;
    int queries = 0;
    int settings = 0;
    int queryResult = 0;
    int setResult = 0;
    std::string dateText;
    std::string timeText;
};

class FakeLinePublisher final : public LinePublisher {
  public:
    void publish(std::string_view line) override { lines.emplace_back(line); }

    std::vector<std::string> lines;
};

}  // namespace vantrace
