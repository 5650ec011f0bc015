#include "platform/qt/qt_line_clients.h"

#include <sys/socket.h>

#include <QFile>
#include <QHostAddress>
#include <QLocalSocket>
#include <QTcpSocket>
#include <algorithm>
#include <utility>

namespace vantrace {

namespace {

using namespace std::chrono_literals;

constexpr std::size_t mostClients = 16;
/// To whom more is unsent, gets only the newest line next.
constexpr qint64 mostUnsentBytes = 2048;
/// The system keeps as little as it may, so that a slow client isn't told lines of minutes ago.
constexpr int systemBufferBytes = 4096;
constexpr qint64 mostHeardBytes = 65536;
constexpr qint64 clientReadAheadBytes = 4096;
constexpr auto betweenTries = 10s;

QString textOf(const std::filesystem::path& path) {
    return QFile::decodeName(QByteArray::fromStdString(path.string()));
}

}  // namespace

bool LineDesk::put(std::string line) {
    const std::lock_guard lock(m_mutex);
    m_line = std::move(line);
    return !std::exchange(m_isCalled, true);
}

std::string LineDesk::take() {
    const std::lock_guard lock(m_mutex);
    m_isCalled = false;
    return m_line;
}

void LineDesk::putTrouble(std::string trouble) {
    const std::lock_guard lock(m_mutex);
    m_troubles.push_back(std::move(trouble));
}

std::vector<std::string> LineDesk::takeTroubles() {
    const std::lock_guard lock(m_mutex);
    return std::exchange(m_troubles, {});
}

LineClients::LineClients(LinePlaces places, std::shared_ptr<LineDesk> desk)
    : m_places(std::move(places)), m_desk(std::move(desk)), m_tcp(this), m_local(this) {
    m_local.setSocketOptions(QLocalServer::UserAccessOption);
    connect(&m_tcp, &QTcpServer::newConnection, this, [this] { welcome(m_tcp); });
    connect(&m_local, &QLocalServer::newConnection, this, [this] { welcome(m_local); });
}

LineClients::~LineClients() {
    for (const Client& client : m_clients) client.device->disconnect(this);
}

void LineClients::tell(const std::string& line) {
    const bool wasOn = !m_line.isEmpty();
    m_line = line.empty() ? QByteArray() : QByteArray::fromStdString(line) + '\n';
    m_lineCameAt = std::chrono::steady_clock::now();
    if (!m_line.isEmpty()) openPlaces();
    if (m_line.isEmpty() && !wasOn) return;
    const QByteArray told = m_line.isEmpty() ? QByteArray("\n") : m_line;
    // By devices, because a client may go while it is written to.
    std::vector<QIODevice*> devices;
    for (const Client& client : m_clients) devices.push_back(client.device);
    for (QIODevice* const device : devices) {
        if (Client* const client = find(device)) send(*client, told);
    }
}

void LineClients::openPlaces() {
    const auto now = std::chrono::steady_clock::now();
    if (m_lastTry && now - *m_lastTry < betweenTries) return;
    m_lastTry = now;
    if (!m_tcp.isListening()) openPort();
    if (!m_local.isListening() && !m_places.socket.empty()) openSocket();
}

void LineClients::openPort() {
    if (m_tcp.listen(QHostAddress::LocalHost, m_places.port) || std::exchange(m_isPortTold, true)) return;
    m_desk->putTrouble("The tracking line can't be told on 127.0.0.1, port " + std::to_string(m_places.port) +
                       ": " + m_tcp.errorString().toStdString());
}

/// Whose program has stopped publishing doesn't send antennas round by what it said last.
bool LineClients::isFresh() const {
    return !m_line.isEmpty() && std::chrono::steady_clock::now() - m_lineCameAt <= m_places.lineLife;
}

void LineClients::openSocket() {
    const QString path = textOf(m_places.socket);
    // A program that was killed has left its socket lying; one that lives answers.
    QLocalSocket other;
    other.connectToServer(path, QIODevice::ReadOnly);
    const bool isTaken = other.waitForConnected(100);
    if (!isTaken && other.error() == QLocalSocket::ConnectionRefusedError) QLocalServer::removeServer(path);
    if (!isTaken && m_local.listen(path)) return;
    if (std::exchange(m_isSocketTold, true)) return;
    m_desk->putTrouble("The tracking line can't be told on " + m_places.socket.string() + ": " +
                       (isTaken ? "another program serves it" : m_local.errorString().toStdString()));
}

template <class Server>
void LineClients::welcome(Server& server) {
    while (auto* const device = server.nextPendingConnection()) {
        using Device = std::remove_pointer_t<decltype(device)>;
        if (m_clients.size() >= mostClients) {
            device->abort();
            device->deleteLater();
            continue;
        }
        device->setReadBufferSize(clientReadAheadBytes);
        const int descriptor = static_cast<int>(device->socketDescriptor());
        setsockopt(descriptor, SOL_SOCKET, SO_SNDBUF, &systemBufferBytes, sizeof systemBufferBytes);
        connect(device, &QIODevice::bytesWritten, this, [this, device] { goOn(device); });
        connect(device, &QIODevice::readyRead, this, [this, device] { hear(device); });
        connect(device, &Device::disconnected, this, [this, device] { dismiss(device); });
        m_clients.push_back({device, std::nullopt, 0});
        if (isFresh()) send(m_clients.back(), m_line);
    }
}

void LineClients::send(Client& client, const QByteArray& line) {
    if (client.device->bytesToWrite() > mostUnsentBytes) {
        client.waiting = line;
    } else {
        client.waiting.reset();
        client.device->write(line);
    }
}

void LineClients::goOn(QIODevice* device) {
    Client* const client = find(device);
    if (client == nullptr || !client->waiting || device->bytesToWrite() > mostUnsentBytes) return;
    send(*client, *std::exchange(client->waiting, std::nullopt));
}

void LineClients::hear(QIODevice* device) {
    Client* const client = find(device);
    if (client == nullptr) return;
    client->heardBytes += device->skip(clientReadAheadBytes);
    if (client->heardBytes > mostHeardBytes) dismiss(device);
}

void LineClients::dismiss(QIODevice* device) {
    const auto removed =
        std::erase_if(m_clients, [&](const Client& client) { return client.device == device; });
    if (removed == 0) return;
    device->disconnect(this);
    // Here and now, whatever is unsent.
    if (auto* const tcp = qobject_cast<QTcpSocket*>(device)) tcp->abort();
    if (auto* const local = qobject_cast<QLocalSocket*>(device)) local->abort();
    device->deleteLater();
}

LineClients::Client* LineClients::find(QIODevice* device) {
    const auto client =
        std::ranges::find_if(m_clients, [&](const Client& one) { return one.device == device; });
    return client == m_clients.end() ? nullptr : &*client;
}

}  // namespace vantrace
