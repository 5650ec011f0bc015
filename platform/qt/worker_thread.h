// A thread with one worker on it, for what may hold its caller up.
#pragma once

#include <QMetaObject>
#include <QObject>
#include <functional>
#include <memory>
#include <utility>

class QThread;

namespace vantrace {

/// What doesn't depend on the worker's kind.
class WorkerThreadEnd {
  public:
    WorkerThreadEnd() = default;
    /// Waits for the thread at most 1 second; one that a hanging server holds is left to itself, and goes
    /// when it is let go.
    ~WorkerThreadEnd();
    WorkerThreadEnd(const WorkerThreadEnd&) = delete;
    WorkerThreadEnd& operator=(const WorkerThreadEnd&) = delete;

    /// `before` is the first that the thread does; may be empty.
    void start(const char* name, std::unique_ptr<QObject> worker, std::function<void()> before);

  private:
    QThread* m_thread = nullptr;
};

/// The worker lives on a thread with an event loop, and ends with it. As the thread may be late, the worker
/// and whatever is posted to it may touch only what belongs to them, or is shared with them.
template <class Worker>
class WorkerThread {
  public:
    bool isStarted() const { return m_worker != nullptr; }

    /// Once. Needs a QCoreApplication.
    void start(const char* name, std::unique_ptr<Worker> worker, std::function<void()> before = {}) {
        m_worker = worker.get();
        m_end.start(name, std::move(worker), std::move(before));
    }

    /// Carries operation(worker) out on the thread, after what was posted before; doesn't wait. Started only.
    template <class Operation>
    void post(Operation operation) const {
        QMetaObject::invokeMethod(
            m_worker, [worker = m_worker, operation = std::move(operation)]() mutable { operation(*worker); },
            Qt::QueuedConnection);
    }

  private:
    Worker* m_worker = nullptr;
    WorkerThreadEnd m_end;
};

}  // namespace vantrace
