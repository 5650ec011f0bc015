#include "app/station/termination.h"

#include <sys/signalfd.h>
#include <unistd.h>

#include <csignal>

namespace vantrace {

namespace {

int openSignals() {
    sigset_t awaited;
    sigemptyset(&awaited);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) sigaddset(&awaited, signal);
    sigprocmask(SIG_BLOCK, &awaited, nullptr);
    return ::signalfd(-1, &awaited, SFD_NONBLOCK | SFD_CLOEXEC);
}

}  // namespace

Termination::Termination() : m_signals(openSignals()) {}

void Termination::onRequest(const std::function<void()>& action) {
    m_notifier = std::make_unique<QSocketNotifier>(m_signals.get(), QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(), [this, action] {
        signalfd_siginfo told{};
        if (::read(m_signals.get(), &told, sizeof told) == static_cast<ssize_t>(sizeof told)) action();
    });
}

}  // namespace vantrace
