#include "platform/qt/qt_http_client.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QThread>
#include <memory>

#include "platform/qt/painting_wait.h"
#include "platform/qt/qt_http_worker.h"

namespace vantrace {

namespace {

using namespace std::chrono_literals;

constexpr auto threadEnd = 1s;
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
    : m_userAgent(userAgent), m_limits(limits) {}

QtHttpClient::~QtHttpClient() {
    if (!m_thread) return;
    m_thread->quit();
    if (m_thread->wait(QDeadlineTimer(threadEnd))) {
        delete m_thread;
        return;
    }
    // It touches nothing but what it owns, and goes when it is let go.
    QObject::connect(m_thread, &QThread::finished, m_thread, &QObject::deleteLater);
}

bool QtHttpClient::startThread() {
    if (m_thread) return true;
    if (!QCoreApplication::instance()) return false;
    m_worker = new HttpWorker(m_userAgent, m_limits);
    m_thread = QThread::create([worker = m_worker] {
        const std::unique_ptr<HttpWorker> owned(worker);
        QEventLoop().exec();
    });
    m_thread->setObjectName(QStringLiteral("http"));
    m_worker->moveToThread(m_thread);
    m_thread->start();
    return true;
}

HttpAnswer QtHttpClient::get(const HttpRequest& request) {
    if (m_isBusy) return failed(HttpFailure::busy, "Another file is being fetched");
    if (!startThread()) return failed(HttpFailure::other, "This program doesn't fetch");
    m_isBusy = true;
    const auto pending = std::make_shared<PendingAnswer>();
    QMetaObject::invokeMethod(
        m_worker,
        [worker = m_worker, request, pending] {
            worker->start(request, [pending](HttpAnswer answer) {
                pending->answer = std::move(answer);
                pending->wait.finish();
            });
        },
        Qt::QueuedConnection);
    const bool isAnswered = pending->wait.waitFor(m_limits.whole + grace);
    m_isBusy = false;
    if (isAnswered) return pending->answer;
    HttpAnswer answer = failed(HttpFailure::other, "The network of this machine hangs");
    answer.mayHaveArrived = true;
    answer.took = std::chrono::duration_cast<std::chrono::milliseconds>(m_limits.whole + grace);
    return answer;
}

}  // namespace vantrace
