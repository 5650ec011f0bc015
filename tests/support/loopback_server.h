// A server on this machine whose every byte a test decides.
#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <functional>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace vantrace {

/// Listens on a free port of 127.0.0.1. Each connection has a thread of its own.
class LoopbackServer {
  public:
    class Connection {
      public:
        Connection(int socket, const std::atomic<bool>& isOver) : m_socket(socket), m_isOver(isOver) {}

        /// Up to and with `end`; less when the other side closes.
        std::string readUntil(std::string_view end);
        /// False when the other side is gone.
        bool write(std::string_view text);
        void pause(std::chrono::milliseconds time) const;
        /// Says nothing until the other side or the server goes.
        void hang();
        /// What is unread makes the end of the connection a reset.
        void reset();

      private:
        int m_socket;
        const std::atomic<bool>& m_isOver;
    };
    using Handler = std::function<void(Connection&)>;

    /// The connection closes when the handler returns. Handlers run on several threads at once. Port 0: any.
    explicit LoopbackServer(Handler handler, std::uint16_t port = 0);
    ~LoopbackServer();
    LoopbackServer(const LoopbackServer&) = delete;
    LoopbackServer& operator=(const LoopbackServer&) = delete;

    std::uint16_t port() const { return m_port; }
    /// "127.0.0.1:PORT".
    std::string address() const { return "127.0.0.1:" + std::to_string(m_port); }

  private:
    void listen();

    const Handler m_handler;
    std::atomic<bool> m_isOver = false;
    int m_socket = -1;
    std::uint16_t m_port = 0;
    std::thread m_listener;
    std::vector<std::thread> m_threads;
};

/// Answers HTTP requests.
class HttpServer {
  public:
    struct Request {
        /// From the first "/" on, or a whole address where a proxy was meant.
        std::string target;
        /// All lines.
        std::string head;
    };
    using Handler = std::function<void(const Request&, LoopbackServer::Connection&)>;

    explicit HttpServer(Handler handler, std::uint16_t port = 0);

    std::uint16_t port() const { return m_server.port(); }
    std::string address() const { return m_server.address(); }
    /// An address of this server.
    std::string url(std::string_view target) const { return "http://" + address() + std::string(target); }
    std::vector<Request> requests() const;

  private:
    const Handler m_handler;
    mutable std::mutex m_mutex;
    std::vector<Request> m_requests;
    /// Last, because its threads use all the others.
    LoopbackServer m_server;
};

/// A whole answer. `status` with its words: "404 Not Found"; `fields` are lines ended by CR LF.
std::string httpAnswer(std::string_view status, std::string_view body, std::string_view fields = "");

}  // namespace vantrace
