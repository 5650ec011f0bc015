// The end that the user or the machine asks for.
#pragma once

#include <QSocketNotifier>
#include <functional>
#include <memory>

#include "platform/file_descriptor.h"

namespace vantrace {

/// Holds back SIGINT, SIGTERM and SIGHUP and tells of them in the event loop. To be made before any thread.
class Termination {
  public:
    Termination();

    /// Needs a QCoreApplication.
    void onRequest(const std::function<void()>& action);

  private:
    FileDescriptor m_signals;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

}  // namespace vantrace
