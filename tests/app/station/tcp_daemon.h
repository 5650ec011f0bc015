// Servers of the test's own process, on free ports of 127.0.0.1.
#pragma once

#include <QTcpServer>
#include <QTcpSocket>
#include <QTest>

#include "app/station/station_program.h"
#include "tests/support/testing.h"

namespace vantrace {

/// No satellite is known, so that everything follows the line.
class NoPasses final : public PassSource {
  public:
    std::optional<ComingPass> passOf(std::string_view, const Instant&, std::string& reason) override {
        reason = "there are no element sets";
        return std::nullopt;
    }
};

/// Takes lines, notes them and answers them.
class TcpDaemon {
  public:
    using Answer = std::function<std::string(const std::string&)>;

    explicit TcpDaemon(Answer answer = [](const std::string&) { return std::string(); })
        : m_answer(std::move(answer)) {
        listen(0);
    }

    NetworkAddress address() const { return {"127.0.0.1", m_port, {}}; }
    /// Closes everything, as a process that is killed.
    void die() { m_server.reset(); }
    /// On the port that it had.
    void comeBack() { listen(m_port); }
    /// To everybody who is connected.
    void tell(const std::string& bytes) {
        for (QTcpSocket* const socket : m_server->findChildren<QTcpSocket*>()) {
            socket->write(bytes.data(), static_cast<qint64>(bytes.size()));
        }
    }
    bool hasClient() const { return m_server != nullptr && m_server->findChild<QTcpSocket*>() != nullptr; }
    int countOf(std::string_view start) const {
        return static_cast<int>(std::ranges::count_if(
            lines, [start](const std::string& line) { return line.starts_with(start); }));
    }

    Texts lines;
    /// How often somebody has connected.
    int arrivals = 0;

  private:
    void listen(std::uint16_t port) {
        m_server = std::make_unique<QTcpServer>();
        QObject::connect(m_server.get(), &QTcpServer::newConnection, m_server.get(), [this] {
            ++arrivals;
            QTcpSocket* const socket = m_server->nextPendingConnection();
            QObject::connect(socket, &QTcpSocket::readyRead, socket, [this, socket] { serve(*socket); });
        });
        m_server->listen(QHostAddress::LocalHost, port);
        m_port = m_server->serverPort();
    }
    void serve(QTcpSocket& socket) {
        while (socket.canReadLine()) {
            lines.push_back(socket.readLine().trimmed().toStdString());
            const std::string answer = m_answer(lines.back());
            socket.write(answer.data(), static_cast<qint64>(answer.size()));
        }
    }

    Answer m_answer;
    std::unique_ptr<QTcpServer> m_server;
    std::uint16_t m_port = 0;
};

/// Serves events until something holds, for ten seconds at most.
inline bool eventually(const std::function<bool()>& holds) {
    return QTest::qWaitFor(holds, 10000);
}

}  // namespace vantrace
