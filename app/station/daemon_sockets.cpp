#include "app/station/daemon_sockets.h"

#include <QCoreApplication>
#include <QTimer>
#include <utility>

#include "app/program/console.h"

namespace vantrace {

SocketTransport::SocketTransport(NetworkAddress address, RunningClock now)
    : m_address(std::move(address)), m_now(std::move(now)) {
    QObject::connect(&m_socket, &QTcpSocket::connected, &m_socket, [this] {
        m_socket.setSocketOption(QAbstractSocket::LowDelayOption, 1);
        if (m_session != nullptr) m_session->connected(m_now());
    });
    QObject::connect(&m_socket, &QTcpSocket::readyRead, &m_socket, [this] {
        // What is read is bounded by the lines that the session takes.
        const QByteArray bytes = m_socket.readAll();
        if (m_session != nullptr)
            m_session->received({bytes.data(), static_cast<std::size_t>(bytes.size())}, m_now());
    });
    QObject::connect(&m_socket, &QTcpSocket::errorOccurred, &m_socket, [this] {
        if (m_isSilent || m_session == nullptr) return;
        m_session->disconnected(m_socket.errorString().toStdString(), m_now());
    });
}

void SocketTransport::connect() {
    drop();
    m_socket.connectToHost(QString::fromStdString(m_address.host), m_address.port);
}

void SocketTransport::send(std::string_view bytes) {
    m_socket.write(bytes.data(), static_cast<qint64>(bytes.size()));
}

void SocketTransport::drop() {
    m_isSilent = true;
    m_socket.abort();
    m_isSilent = false;
}

PrintedTransport::PrintedTransport(std::string word, std::ostream& out, RunningClock now)
    : m_word(std::move(word)), m_out(out), m_now(std::move(now)) {}

void PrintedTransport::later(const std::function<void(DaemonSession&)>& action) {
    QTimer::singleShot(0, &m_context, [this, action] {
        if (m_session != nullptr) action(*m_session);
    });
}

void PrintedTransport::connect() {
    later([this](DaemonSession& session) { session.connected(m_now()); });
}

void PrintedTransport::send(std::string_view bytes) {
    const std::string command(bytes.substr(1, bytes.size() - 2));
    const bool isQuestion = command == "p" || command.starts_with('\\');
    if (!isQuestion) m_out << m_word << ": " << command << std::endl;
    // Nobody reads any more.
    if (!m_out) QCoreApplication::exit(exit_status::incomplete);
    later([this, isQuestion](DaemonSession& session) {
        session.received(isQuestion ? "RPRT -11\n" : "RPRT 0\n", m_now());
    });
}

}  // namespace vantrace
