#include "platform/qt/qt_http_client.h"

#include <QCoreApplication>
#include <memory>

#include "platform/qt/painting_wait.h"
#include "platform/qt/qt_http_worker.h"
#include "platform/qt/worker_thread.h"

namespace vantrace {

namespace {

using namespace std::chrono_literals;

/// The worker keeps the limits; this one is for a worker that hangs itself.
constexpr auto grace = 5s;

/// Shared with the thread, which may be late.
struct PendingAnswer {
    PaintingWait wait;
    HttpAnswer answer;
};

HttpAnswer failed(HttpFailure failure, std::string_view text) {
    HttpAnswer answer;
    answer.failure = failure;
    answer.text = text;
    return answer;
}

}  // namespace

QtHttpClient::QtHttpClient(std::string_view userAgent, HttpLimits limits)
    : m_userAgent(userAgent), m_limits(limits), m_thread(std::make_unique<WorkerThread<HttpWorker>>()) {}

QtHttpClient::~QtHttpClient() = default;

HttpAnswer QtHttpClient::get(const HttpRequest& request) {
    if (m_isBusy) return failed(HttpFailure::busy, "Another file is being fetched");
    if (!QCoreApplication::instance()) return failed(HttpFailure::other, "This program doesn't fetch");
    if (!m_thread->isStarted()) {
        m_thread->start("http", std::make_unique<HttpWorker>(m_userAgent, m_limits));
    }
    m_isBusy = true;
    const auto pending = std::make_shared<PendingAnswer>();
    m_thread->post([request, pending](HttpWorker& worker) {
        worker.start(request, [pending](HttpAnswer answer) {
            pending->answer = std::move(answer);
            pending->wait.finish();
        });
    });
    const bool isAnswered = pending->wait.waitFor(m_limits.whole + grace);
    m_isBusy = false;
    if (isAnswered) return pending->answer;
    HttpAnswer answer = failed(HttpFailure::other, "The network of this machine hangs");
    answer.mayHaveArrived = true;
    answer.took = std::chrono::duration_cast<std::chrono::milliseconds>(m_limits.whole + grace);
    return answer;
}

}  // namespace vantrace
