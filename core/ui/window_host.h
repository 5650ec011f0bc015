// What stands around every handler of a window: the guard, the yield, and the end of unloaded windows.
#pragma once

#include <QObject>
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

    /// Shows what the windows hold, serves the waiting events, and takes up what the user did.
    void yield() override;

    WindowRegistry& registry() { return m_registry; }

  private:
    void tell(std::string_view window, std::string_view description);
    void releaseWhenIdle();

    WindowRegistry& m_registry;
    Dialogs& m_dialogs;
    ErrorLog& m_errorLog;
    int m_running = 0;
};

}  // namespace vantrace
