// HTTP by Qt Network.
#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "platform/http_client.h"

namespace vantrace {

class HttpWorker;
template <class Worker>
class WorkerThread;

struct HttpLimits {
    /// Without any sign of life from the other side.
    std::chrono::milliseconds quiet{30'000};
    /// For one request.
    std::chrono::milliseconds whole{600'000};
    /// Of a body, unpacked.
    std::int64_t bodyBytes = std::int64_t{64} * 1024 * 1024;
};

/// Needs a QCoreApplication. Everything happens on a thread of its own, made at the first request.
/// Certificates that the machine doesn't trust are refused. The only proxy is that of the request, whatever
/// the desktop has set. No cookies.
class QtHttpClient final : public HttpClient {
  public:
    /// What the program calls itself towards servers, such as "Vantrace/1.0".
    explicit QtHttpClient(std::string_view userAgent, HttpLimits limits = {});
    /// Waits for the thread at most 1 second.
    ~QtHttpClient() override;
    QtHttpClient(const QtHttpClient&) = delete;
    QtHttpClient& operator=(const QtHttpClient&) = delete;

    HttpAnswer get(const HttpRequest& request) override;

  private:
    const std::string m_userAgent;
    const HttpLimits m_limits;
    const std::unique_ptr<WorkerThread<HttpWorker>> m_thread;
    bool m_isBusy = false;
};

}  // namespace vantrace
