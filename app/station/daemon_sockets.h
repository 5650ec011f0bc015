// The wires to the daemons: a socket, or paper.
#pragma once

#include <QTcpSocket>
#include <functional>
#include <ostream>
#include <string>

#include "app/station/network_address.h"
#include "station/steering/daemon_session.h"

namespace vantrace {

/// Seconds of a clock that only runs forward.
using RunningClock = std::function<double()>;

/// A connection over TCP. Needs a QCoreApplication.
class SocketTransport final : public DaemonTransport {
  public:
    SocketTransport(NetworkAddress address, RunningClock now);

    /// Whom it tells; outlives this, or at least its events.
    void setSession(DaemonSession& session) { m_session = &session; }

    void connect() override;
    void send(std::string_view bytes) override;
    void drop() override;

  private:
    NetworkAddress m_address;
    RunningClock m_now;
    DaemonSession* m_session = nullptr;
    bool m_isSilent = false;
    QTcpSocket m_socket;
};

/// Prints what would be sent, behind a word that says to whom, and answers that it was done. Questions are
/// neither printed nor answered with anything of use.
class PrintedTransport final : public DaemonTransport {
  public:
    /// The stream outlives this.
    PrintedTransport(std::string word, std::ostream& out, RunningClock now);

    void setSession(DaemonSession& session) { m_session = &session; }

    void connect() override;
    void send(std::string_view bytes) override;
    void drop() override {}

  private:
    void later(const std::function<void(DaemonSession&)>& action);

    std::string m_word;
    std::ostream& m_out;
    RunningClock m_now;
    DaemonSession* m_session = nullptr;
    QObject m_context;
};

}  // namespace vantrace
