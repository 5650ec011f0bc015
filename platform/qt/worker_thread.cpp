#include "platform/qt/worker_thread.h"

#include <QDeadlineTimer>
#include <QEventLoop>
#include <QThread>
#include <chrono>

namespace vantrace {

WorkerThreadEnd::~WorkerThreadEnd() {
    if (!m_thread) return;
    m_thread->quit();
    if (m_thread->wait(QDeadlineTimer(std::chrono::seconds(1)))) {
        delete m_thread;
        return;
    }
    QObject::connect(m_thread, &QThread::finished, m_thread, &QObject::deleteLater);
}

void WorkerThreadEnd::start(const char* name, std::unique_ptr<QObject> worker, std::function<void()> before) {
    QObject* const moved = worker.release();
    m_thread = QThread::create([moved, before = std::move(before)] {
        const std::unique_ptr<QObject> owned(moved);
        if (before) before();
        QEventLoop().exec();
    });
    m_thread->setObjectName(QString::fromLatin1(name));
    moved->moveToThread(m_thread);
    m_thread->start();
}

}  // namespace vantrace
