// Those who listen to the line: what of it lives on a thread of its own.
#pragma once

#include <QLocalServer>
#include <QObject>
#include <QTcpServer>
#include <chrono>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "platform/qt/qt_line_publisher.h"

class QIODevice;

namespace vantrace {

/// The newest line, laid down by one thread and taken up by another.
class LineDesk {
  public:
    /// True when nobody has been called yet to take it.
    bool put(std::string line);
    std::string take();

  private:
    std::mutex m_mutex;
    std::string m_line;
    bool m_isCalled = false;
};

/// Lives, and is destroyed, on a thread with an event loop.
class LineClients final : public QObject {
  public:
    explicit LineClients(LinePlaces places);
    ~LineClients() override;

    void tell(const std::string& line);

  private:
    struct Client {
        QIODevice* device = nullptr;
        /// The newest line, where it has to wait for those before it.
        std::optional<QByteArray> waiting;
        qint64 heardBytes = 0;
    };

    void openPlaces();
    void openSocket();
    template <class Server>
    void welcome(Server& server);
    void send(Client& client, const QByteArray& line);
    void hear(QIODevice* device);
    void goOn(QIODevice* device);
    void dismiss(QIODevice* device);
    Client* find(QIODevice* device);

    const LinePlaces m_places;
    QTcpServer m_tcp;
    QLocalServer m_local;
    std::optional<std::chrono::steady_clock::time_point> m_lastTry;
    /// As it is sent, with its end; empty without one.
    QByteArray m_line;
    std::vector<Client> m_clients;
};

}  // namespace vantrace
