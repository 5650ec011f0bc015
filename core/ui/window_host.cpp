#include "core/ui/window_host.h"

#include <QCoreApplication>
#include <QMetaObject>
#include <exception>

#include "core/error_log.h"
#include "core/window_registry.h"
#include "platform/dialogs.h"

namespace vantrace {

WindowHost::WindowHost(WindowRegistry& registry, Dialogs& dialogs, ErrorLog& errorLog)
    : m_registry(registry), m_dialogs(dialogs), m_errorLog(errorLog) {}

void WindowHost::handle(std::string_view window, const std::function<void()>& handler) {
    run(window, handler, false);
}

void WindowHost::handleTick(std::string_view window, const std::function<void()>& tick) {
    run(window, tick, true);
}

void WindowHost::run(std::string_view window, const std::function<void()>& handler, bool isTick) {
    const Busy busy(*this);
    try {
        handler();
    } catch (const std::exception& failure) {
        tell(window, failure.what(), isTick);
    } catch (...) {
        tell(window, "a failure that can't be told", isTick);
    }
}

void WindowHost::ran() {
    --m_running;
    if (m_running == 0 && m_registry.hasUnloaded()) {
        // Not here: the event that called the handler may still be in the window's own code.
        QMetaObject::invokeMethod(this, &WindowHost::releaseWhenIdle, Qt::QueuedConnection);
    }
}

void WindowHost::yield() {
    m_registry.beforeYield();
    QCoreApplication::processEvents();
    m_registry.afterYield();
    m_lastYield = std::chrono::steady_clock::now();
}

void WindowHost::yieldOften() {
    if (std::chrono::steady_clock::now() - m_lastYield >= std::chrono::milliseconds(1)) yield();
}

void WindowHost::tell(std::string_view window, std::string_view description, bool isTick) {
    m_errorLog.append(description, window);
    if (isTick && m_toldOfTick == description) return;
    if (isTick) m_toldOfTick = description;
    m_dialogs.message(description);
}

void WindowHost::releaseWhenIdle() {
    // Inside a handler that yields there is still one on the stack; its end comes back here.
    if (m_running == 0) m_registry.releaseUnloaded();
}

}  // namespace vantrace
