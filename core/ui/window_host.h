// What stands around every handler of a window: the guard, the yield, and the end of unloaded windows.
#pragma once

#include <QObject>
#include <chrono>
#include <functional>
#include <string>
#include <string_view>

#include "platform/event_queue.h"

namespace vantrace {

class Dialogs;
class ErrorLog;
class WindowRegistry;

class WindowHost final : public QObject, public EventQueue {
  public:
    /// All outlive this.
    WindowHost(WindowRegistry& registry, Dialogs& dialogs, ErrorLog& errorLog);

    /// Runs a handler of that window. What it throws stops here: a message box, a line in the log, and the
    /// program lives. Handlers run inside others, by way of a yield or a message box.
    void handle(std::string_view window, const std::function<void()>& handler);
    /// The same for the tick of a timer: a failure that comes again with each tick has one message box.
    void handleTick(std::string_view window, const std::function<void()>& tick);

    /// Shows what the windows hold, serves the waiting events, and takes up what the user did.
    void yield() override;
    void yieldOften() override;

    WindowRegistry& registry() { return m_registry; }

    /// While one lives no unloaded window is destroyed: there is code of a window on the stack.
    class Busy {
      public:
        explicit Busy(WindowHost& host) : m_host(host) { ++m_host.m_running; }
        ~Busy() { m_host.ran(); }
        Busy(const Busy&) = delete;
        Busy& operator=(const Busy&) = delete;

      private:
        WindowHost& m_host;
    };

  private:
    void ran();
    void run(std::string_view window, const std::function<void()>& handler, bool isTick);
    void tell(std::string_view window, std::string_view description, bool isTick);
    void releaseWhenIdle();

    WindowRegistry& m_registry;
    Dialogs& m_dialogs;
    ErrorLog& m_errorLog;
    int m_running = 0;
    std::chrono::steady_clock::time_point m_lastYield;
    /// The failure of a tick that the user was told last.
    std::string m_toldOfTick;
};

}  // namespace vantrace
