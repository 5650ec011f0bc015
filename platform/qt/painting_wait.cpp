#include "platform/qt/painting_wait.h"

#include <QApplication>
#include <QPointer>
#include <QThread>
#include <QWidget>
#include <algorithm>
#include <vector>

namespace vantrace {

namespace {

using namespace std::chrono_literals;

/// So often windows are looked after; a timer that is due and held can't make it more.
constexpr auto betweenPaintings = 15ms;

/// Sees every event of the window thread before its receiver does.
class WindowsAtRest final : public QObject {
  public:
    WindowsAtRest() { QCoreApplication::instance()->installEventFilter(this); }
    ~WindowsAtRest() override {
        QCoreApplication::instance()->removeEventFilter(this);
        // Not now: whoever waited has still to come back.
        for (const QPointer<QWidget>& window : m_activated) {
            if (window && window->isActiveWindow()) {
                QCoreApplication::postEvent(window, new QEvent(QEvent::WindowActivate));
            }
        }
        // A call, because an event loop that begins drops what it finds of the event itself.
        if (m_isToEnd) {
            QMetaObject::invokeMethod(QCoreApplication::instance(), &QCoreApplication::quit,
                                      Qt::QueuedConnection);
        }
    }

    bool eventFilter(QObject* receiver, QEvent* event) override {
        switch (event->type()) {
            case QEvent::Quit:
                m_isToEnd = true;
                return true;
            case QEvent::WindowActivate: {
                // What stands inside a window hears of it from the window.
                auto* const widget = qobject_cast<QWidget*>(receiver);
                if (widget == nullptr || !widget->isWindow()) return false;
                m_activated.emplace_back(widget);
                return true;
            }
            case QEvent::Close:
                event->ignore();
                return true;
            case QEvent::Timer:
                // One that is held stays due and comes again. Those of QWindow are for painting.
                return !receiver->isWindowType();
            default:
                return isInput(event->type());
        }
    }

  private:
    static bool isInput(QEvent::Type type) {
        switch (type) {
            case QEvent::MouseButtonPress:
            case QEvent::MouseButtonRelease:
            case QEvent::MouseButtonDblClick:
            case QEvent::MouseMove:
            case QEvent::Wheel:
            case QEvent::KeyPress:
            case QEvent::KeyRelease:
            case QEvent::ShortcutOverride:
            case QEvent::Shortcut:
            case QEvent::InputMethod:
            case QEvent::ContextMenu:
            case QEvent::TouchBegin:
            case QEvent::TouchUpdate:
            case QEvent::TouchEnd:
            case QEvent::TouchCancel:
            case QEvent::TabletPress:
            case QEvent::TabletMove:
            case QEvent::TabletRelease:
            case QEvent::NativeGesture:
            case QEvent::Gesture:
            case QEvent::GestureOverride:
            case QEvent::DragEnter:
            case QEvent::DragMove:
            case QEvent::DragLeave:
            case QEvent::Drop:
            case QEvent::FileOpen:
                return true;
            default:
                return false;
        }
    }

    std::vector<QPointer<QWidget>> m_activated;
    bool m_isToEnd = false;
};

bool isWindowThread() {
    const QCoreApplication* const application = QCoreApplication::instance();
    return qobject_cast<const QApplication*>(application) != nullptr &&
           QThread::currentThread() == application->thread();
}

}  // namespace

void PaintingWait::finish() {
    // Notified under the lock: once the waiting thread sees the end, this object may be gone.
    const std::lock_guard lock(m_mutex);
    m_isFinished = true;
    m_finished.notify_all();
}

bool PaintingWait::waitFor(std::chrono::milliseconds limit) {
    const auto end = std::chrono::steady_clock::now() + limit;
    return isWindowThread() ? waitPainting(end) : waitPlainly(end);
}

bool PaintingWait::isFinished() {
    const std::lock_guard lock(m_mutex);
    return m_isFinished;
}

bool PaintingWait::waitPlainly(std::chrono::steady_clock::time_point end) {
    std::unique_lock lock(m_mutex);
    return m_finished.wait_until(lock, end, [this] { return m_isFinished; });
}

bool PaintingWait::waitPainting(std::chrono::steady_clock::time_point end) {
    const WindowsAtRest windowsAtRest;
    while (std::chrono::steady_clock::now() < end) {
        QCoreApplication::processEvents();
        if (waitPlainly(std::min(end, std::chrono::steady_clock::now() + betweenPaintings))) return true;
    }
    return isFinished();
}

}  // namespace vantrace
