#include "platform/qt/qt_line_publisher.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QThread>
#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <string>
#include <system_error>
#include <utility>

#include "platform/qt/qt_line_clients.h"

namespace vantrace {

namespace {

using namespace std::chrono_literals;

constexpr std::size_t longestLine = 1000;
constexpr auto threadEnd = 1s;

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
        places.socket = folder / "vantrace-tracking";
    }
    return places;
}

/// The thread that tells, and the way to it.
class QtLinePublisher::Desk {
  public:
    Desk(LinePlaces places, Tell tell) : m_places(std::move(places)), m_tell(std::move(tell)) {}
    ~Desk();
    Desk(const Desk&) = delete;
    Desk& operator=(const Desk&) = delete;

    void publish(std::string line);

  private:
    void start();

    const LinePlaces m_places;
    const Tell m_tell;
    // Shared with the thread, which may live on for a while.
    const std::shared_ptr<LineDesk> m_desk = std::make_shared<LineDesk>();
    QThread* m_thread = nullptr;
    /// Belongs to the thread, and ends with it.
    LineClients* m_clients = nullptr;
};

QtLinePublisher::Desk::~Desk() {
    if (!m_thread) return;
    m_thread->quit();
    if (m_thread->wait(QDeadlineTimer(threadEnd))) {
        delete m_thread;
        return;
    }
    QObject::connect(m_thread, &QThread::finished, m_thread, &QObject::deleteLater);
}

void QtLinePublisher::Desk::publish(std::string line) {
    if (!m_thread && line.empty()) return;
    if (!m_thread) start();
    for (const std::string& trouble : m_desk->takeTroubles()) {
        if (m_tell) m_tell(trouble);
    }
    if (!m_clients || !m_desk->put(std::move(line))) return;
    QMetaObject::invokeMethod(
        m_clients, [clients = m_clients, desk = m_desk] { clients->tell(desk->take()); },
        Qt::QueuedConnection);
}

void QtLinePublisher::Desk::start() {
    if (!QCoreApplication::instance()) return;
    m_clients = new LineClients(m_places, m_desk);
    m_thread = QThread::create([clients = m_clients] {
        const std::unique_ptr<LineClients> owned(clients);
        QEventLoop().exec();
    });
    m_thread->setObjectName(QStringLiteral("line"));
    m_clients->moveToThread(m_thread);
    m_thread->start();
}

QtLinePublisher::QtLinePublisher(LinePlaces places, Tell tell)
    : m_desk(std::make_unique<Desk>(std::move(places), std::move(tell))) {}

QtLinePublisher::~QtLinePublisher() = default;

void QtLinePublisher::publish(std::string_view line) {
    m_desk->publish(oneLine(line));
}

}  // namespace vantrace
