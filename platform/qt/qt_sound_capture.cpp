#include "platform/qt/qt_sound_capture.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QThread>
#include <chrono>
#include <future>
#include <string>
#include <utility>

#include "platform/qt/qt_capture_worker.h"

namespace vantrace {

namespace {

using namespace std::chrono_literals;

/// The first use of the sound system on a machine may take seconds.
constexpr auto patience = 3000ms;
/// With one that has been late already.
constexpr auto patienceWithTheLate = 50ms;
constexpr auto threadEnd = 1s;

}  // namespace

QtSoundCapture::QtSoundCapture() = default;

QtSoundCapture::~QtSoundCapture() {
    if (!m_thread) return;
    m_thread->quit();
    if (m_thread->wait(QDeadlineTimer(threadEnd))) {
        delete m_thread;
        return;
    }
    // A hanging server holds it. It touches nothing but what it owns, and goes when it is let go.
    QObject::connect(m_thread, &QThread::finished, m_thread, &QObject::deleteLater);
}

bool QtSoundCapture::startThread() {
    if (m_thread) return true;
    if (!QCoreApplication::instance()) return false;
    m_worker = new CaptureWorker;
    m_thread = QThread::create([worker = m_worker] {
        const std::unique_ptr<CaptureWorker> owned(worker);
        QEventLoop().exec();
    });
    m_thread->setObjectName(QStringLiteral("capture"));
    m_worker->moveToThread(m_thread);
    m_thread->start();
    return true;
}

bool QtSoundCapture::ask(std::function<bool(CaptureWorker&)> operation) {
    if (!m_thread) return false;
    const auto answer = std::make_shared<std::promise<bool>>();
    std::future<bool> result = answer->get_future();
    QMetaObject::invokeMethod(
        m_worker,
        [worker = m_worker, answer, operation = std::move(operation)] {
            answer->set_value(operation(*worker));
        },
        Qt::QueuedConnection);
    m_isLate = result.wait_for(m_isLate ? patienceWithTheLate : patience) != std::future_status::ready;
    return !m_isLate && result.get();
}

bool QtSoundCapture::closeAll() {
    if (!m_thread) return true;
    return ask([](CaptureWorker& worker) { return worker.closeAll(); });
}

bool QtSoundCapture::open() {
    return startThread() && ask([](CaptureWorker& worker) { return worker.open(); });
}

bool QtSoundCapture::seekToStart() {
    return ask([](CaptureWorker& worker) { return worker.seekToStart(); });
}

bool QtSoundCapture::setFormat(const CaptureFormat& format) {
    return ask([format](CaptureWorker& worker) { return worker.setFormat(format); });
}

bool QtSoundCapture::record() {
    return ask([](CaptureWorker& worker) { return worker.record(); });
}

bool QtSoundCapture::save(std::string_view file) {
    return ask([file = std::string(file)](CaptureWorker& worker) { return worker.save(file); });
}

bool QtSoundCapture::stop() {
    return ask([](CaptureWorker& worker) { return worker.stop(); });
}

bool QtSoundCapture::close() {
    return ask([](CaptureWorker& worker) { return worker.close(); });
}

}  // namespace vantrace
