#include "platform/qt/qt_sound_capture.h"

#include <QCoreApplication>
#include <chrono>
#include <future>
#include <string>
#include <utility>

#include "platform/qt/qt_capture_worker.h"
#include "platform/qt/worker_thread.h"

namespace vantrace {

namespace {

using namespace std::chrono_literals;

/// The first use of the sound system on a machine may take seconds.
constexpr auto patience = 3000ms;
/// With one that has been late already.
constexpr auto patienceWithTheLate = 50ms;

}  // namespace

QtSoundCapture::QtSoundCapture() : m_thread(std::make_unique<WorkerThread<CaptureWorker>>()) {}

QtSoundCapture::~QtSoundCapture() = default;

bool QtSoundCapture::ask(std::function<bool(CaptureWorker&)> operation) {
    if (!m_thread->isStarted()) return false;
    const auto answer = std::make_shared<std::promise<bool>>();
    std::future<bool> result = answer->get_future();
    m_thread->post([answer, operation = std::move(operation)](CaptureWorker& worker) {
        answer->set_value(operation(worker));
    });
    m_isLate = result.wait_for(m_isLate ? patienceWithTheLate : patience) != std::future_status::ready;
    return !m_isLate && result.get();
}

bool QtSoundCapture::closeAll() {
    if (!m_thread->isStarted()) return true;
    return ask([](CaptureWorker& worker) { return worker.closeAll(); });
}

bool QtSoundCapture::open() {
    if (!QCoreApplication::instance()) return false;
    if (!m_thread->isStarted()) m_thread->start("capture", std::make_unique<CaptureWorker>());
    return ask([](CaptureWorker& worker) { return worker.open(); });
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
