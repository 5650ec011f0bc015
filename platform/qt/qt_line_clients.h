// Those who listen to the line: what of it lives on a thread of its own.
#pragma once

#include <QLocalServer>
#include <QObject>
#include <QTcpServer>
#include <chrono>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "platform/qt/qt_line_publisher.h"

class QIODevice;

namespace vantrace {

/// The newest line, laid down by one thread and taken up by another; the other way what went wrong.
class LineDesk {
  public:
    /// True when nobody has been called yet to take it.
    bool put(std::string line);
    std::string take();
    void putTrouble(std::string trouble);
    /// Those that nobody has taken yet.
    std::vector<std::string> takeTroubles();

  private:
    std::mutex m_mutex;
    std::vector<std::string> m_troubles;
    std::string m_line;
    bool m_isCalled = false;
};

/// Lives, and is destroyed, on a thread with an event loop.
class LineClients final : public QObject {
  public:
    LineClients(LinePlaces places, std::shared_ptr<LineDesk> desk);
    ~LineClients() override;
    LineClients(const LineClients&) = delete;
    LineClients& operator=(const LineClients&) = delete;

    void tell(const std::string& line);

  private:
    struct Client {
        QIODevice* device = nullptr;
        /// The newest line, where it has to wait for those before it.
        std::optional<QByteArray> waiting;
        qint64 heardBytes = 0;
    };

    void openPlaces();
    void openPort();
    void openSocket();
    bool isFresh() const;
    template <class Server>
    void welcome(Server& server);
    void send(Client& client, const QByteArray& line);
    void hear(QIODevice* device);
    void goOn(QIODevice* device);
    void dismiss(QIODevice* device);
    Client* find(QIODevice* device);

    const LinePlaces m_places;
    const std::shared_ptr<LineDesk> m_desk;
    bool m_isPortTold = false;
    bool m_isSocketTold = false;
    QTcpServer m_tcp;
    QLocalServer m_local;
    std::optional<std::chrono::steady_clock::time_point> m_lastTry;
    /// As it is sent, with its end; empty without one.
    QByteArray m_line;
    std::chrono::steady_clock::time_point m_lineCameAt;
    std::vector<Client> m_clients;
};

}  // namespace vantrace
