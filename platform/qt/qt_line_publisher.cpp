#include "platform/qt/qt_line_publisher.h"

#include <QCoreApplication>
#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <string>
#include <system_error>
#include <utility>

#include "platform/qt/qt_line_clients.h"
#include "platform/qt/worker_thread.h"

namespace vantrace {

namespace {

using namespace std::chrono_literals;

constexpr std::size_t longestLine = 1000;

std::string oneLine(std::string_view text) {
    std::string line(text.substr(0, longestLine));
    std::ranges::replace_if(
        line, [](char sign) { return sign == '\n' || sign == '\r' || sign == '\0'; }, ' ');
    return line;
}

}  // namespace

LinePlaces usualLinePlaces() {
    LinePlaces places;
    const char* const variable = std::getenv("XDG_RUNTIME_DIR");
    const std::filesystem::path folder = variable == nullptr ? "" : variable;
    std::error_code error;
    if (folder.is_absolute() && std::filesystem::is_directory(folder, error)) {
        places.socket = folder / trackingLineSocket;
    }
    return places;
}

/// The thread that tells, and the way to it.
class QtLinePublisher::Desk {
  public:
    Desk(LinePlaces places, Tell tell) : m_places(std::move(places)), m_tell(std::move(tell)) {}

    void publish(std::string line);

  private:
    const LinePlaces m_places;
    const Tell m_tell;
    // Shared with the thread, which may live on for a while.
    const std::shared_ptr<LineDesk> m_desk = std::make_shared<LineDesk>();
    WorkerThread<LineClients> m_thread;
};

void QtLinePublisher::Desk::publish(std::string line) {
    if (!m_thread.isStarted()) {
        if (line.empty() || !QCoreApplication::instance()) return;
        m_thread.start("line", std::make_unique<LineClients>(m_places, m_desk));
    }
    for (const std::string& trouble : m_desk->takeTroubles()) {
        if (m_tell) m_tell(trouble);
    }
    if (!m_desk->put(std::move(line))) return;
    m_thread.post([desk = m_desk](LineClients& clients) { clients.tell(desk->take()); });
}

QtLinePublisher::QtLinePublisher(LinePlaces places, Tell tell)
    : m_desk(std::make_unique<Desk>(std::move(places), std::move(tell))) {}

QtLinePublisher::~QtLinePublisher() = default;

void QtLinePublisher::publish(std::string_view line) {
    m_desk->publish(oneLine(line));
}

}  // namespace vantrace
