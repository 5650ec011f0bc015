#include "tests/support/loopback_server.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <stdexcept>
#include <utility>

namespace vantrace {

namespace {

using namespace std::chrono_literals;

/// How long anybody takes to see that the server is over.
constexpr int glanceMs = 20;

bool waitReadable(int socket, const std::atomic<bool>& isOver) {
    while (!isOver) {
        pollfd waiting{socket, POLLIN, 0};
        if (poll(&waiting, 1, glanceMs) != 0) return true;
    }
    return false;
}

}  // namespace

std::string LoopbackServer::Connection::readUntil(std::string_view end) {
    std::string text;
    char sign = 0;
    while (!text.ends_with(end) && waitReadable(m_socket, m_isOver) && recv(m_socket, &sign, 1, 0) == 1) {
        text += sign;
    }
    return text;
}

bool LoopbackServer::Connection::write(std::string_view text) {
    while (!text.empty() && !m_isOver) {
        const ssize_t count = send(m_socket, text.data(), text.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
        if (count > 0) {
            text.remove_prefix(static_cast<std::size_t>(count));
        } else if (errno == EAGAIN) {
            pollfd waiting{m_socket, POLLOUT, 0};
            poll(&waiting, 1, glanceMs);
        } else {
            return false;
        }
    }
    return text.empty();
}

void LoopbackServer::Connection::pause(std::chrono::milliseconds time) const {
    const auto end = std::chrono::steady_clock::now() + time;
    while (!m_isOver && std::chrono::steady_clock::now() < end) std::this_thread::sleep_for(5ms);
}

void LoopbackServer::Connection::hang() {
    std::array<char, 256> ignored{};
    while (waitReadable(m_socket, m_isOver) && recv(m_socket, ignored.data(), ignored.size(), 0) > 0) {
    }
}

void LoopbackServer::Connection::reset() {
    const linger atOnce{1, 0};
    setsockopt(m_socket, SOL_SOCKET, SO_LINGER, &atOnce, sizeof atOnce);
}

LoopbackServer::LoopbackServer(Handler handler, std::uint16_t port) : m_handler(std::move(handler)) {
    m_socket = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const int yes = 1;
    setsockopt(m_socket, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
    sockaddr_in place{};
    place.sin_family = AF_INET;
    place.sin_port = htons(port);
    place.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof place;
    auto* const address = reinterpret_cast<sockaddr*>(&place);
    if (bind(m_socket, address, size) != 0 || ::listen(m_socket, 50) != 0 ||
        getsockname(m_socket, address, &size) != 0) {
        throw std::runtime_error("no server can be made");
    }
    m_port = ntohs(place.sin_port);
    m_listener = std::thread([this] { listen(); });
}

LoopbackServer::~LoopbackServer() {
    m_isOver = true;
    m_listener.join();
    for (std::thread& thread : m_threads) thread.join();
    close(m_socket);
}

void LoopbackServer::listen() {
    while (waitReadable(m_socket, m_isOver)) {
        const int client = accept4(m_socket, nullptr, nullptr, SOCK_CLOEXEC);
        if (client < 0) continue;
        m_threads.emplace_back([this, client] {
            Connection connection(client, m_isOver);
            m_handler(connection);
            close(client);
        });
    }
}

HttpServer::HttpServer(Handler handler, std::uint16_t port)
    : m_handler(std::move(handler)),
      m_server(
          [this](LoopbackServer::Connection& connection) {
              Request request;
              request.head = connection.readUntil("\r\n\r\n");
              if (!request.head.starts_with("GET ")) return;
              request.target = request.head.substr(4, request.head.find(' ', 4) - 4);
              {
                  const std::lock_guard lock(m_mutex);
                  m_requests.push_back(request);
              }
              m_handler(request, connection);
          },
          port) {}

std::vector<HttpServer::Request> HttpServer::requests() const {
    const std::lock_guard lock(m_mutex);
    return m_requests;
}

std::string httpAnswer(std::string_view status, std::string_view body, std::string_view fields) {
    return "HTTP/1.1 " + std::string(status) + "\r\n" + std::string(fields) +
           "Connection: close\r\nContent-Length: " + std::to_string(body.size()) + "\r\n\r\n" +
           std::string(body);
}

}  // namespace vantrace
