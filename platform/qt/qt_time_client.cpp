#include "platform/qt/qt_time_client.h"

#include <QCoreApplication>
#include <QHostAddress>
#include <QHostInfo>
#include <QNetworkProxy>
#include <QTcpSocket>
#include <QThread>
#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <cstdio>
#include <ctime>
#include <memory>
#include <optional>

#include "platform/qt/painting_wait.h"

namespace vantrace {

namespace {

using namespace std::chrono_literals;
using Steady = std::chrono::steady_clock;

constexpr std::uint16_t daytimePort = 13;
/// No line of a time is longer.
constexpr qint64 longestAnswer = 512;
/// NIST asks for at least this between two queries: https://tf.nist.gov/tf-cgi/servers.cgi
constexpr auto restSpan = 4s;

struct Place {
    QString host;
    std::uint16_t port = daytimePort;
};

/// "name", "name:port", "[address]:port".
std::optional<Place> placeOf(std::string_view text) {
    Place place;
    const std::size_t colon = text.rfind(':');
    const bool hasPort =
        colon != std::string_view::npos && (text.find(':') == colon || (colon > 0 && text[colon - 1] == ']'));
    if (hasPort) {
        const char* const end = text.data() + text.size();
        const auto [stop, error] = std::from_chars(text.data() + colon + 1, end, place.port);
        if (error != std::errc() || stop != end || place.port == 0) return std::nullopt;
        text = text.substr(0, colon);
    }
    if (text.starts_with('[') && text.ends_with(']')) text = text.substr(1, text.size() - 2);
    if (text.empty()) return std::nullopt;
    place.host = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    return place;
}

/// One question and its answer; shared with the thread that asks, which may be late.
struct Query {
    Place place;
    Steady::time_point end;
    PaintingWait wait;

    int result = QtTimeClient::noConnection;
    std::string text;
    BootClock::time_point textAt{};
    /// The way from the server to here.
    std::chrono::milliseconds delay{0};

    int millisecondsLeft() const {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end - Steady::now());
        return static_cast<int>(std::max(left, 0ms).count());
    }
    /// So that an address that swallows everything leaves time for those behind it.
    int shareOf(qsizetype addressesLeft) const {
        return millisecondsLeft() / static_cast<int>(addressesLeft);
    }
};

/// A line that isn't blank, with its end.
bool holdsLine(const std::string& text) {
    const std::size_t start = text.find_first_not_of("\r\n \t");
    return start != std::string::npos && text.find('\n', start) != std::string::npos;
}

void readAnswer(QTcpSocket& socket, Query& query) {
    query.result = QtTimeClient::noAnswer;
    while (query.text.size() < longestAnswer && !holdsLine(query.text)) {
        const bool isOpen = socket.bytesAvailable() > 0 || socket.waitForReadyRead(query.millisecondsLeft());
        if (!isOpen) break;
        // Of a line, its end is what is sent at the time that it tells.
        query.textAt = BootClock::now();
        query.text += socket.read(longestAnswer - static_cast<qint64>(query.text.size())).toStdString();
    }
    const bool isWhole = holdsLine(query.text) || socket.state() == QAbstractSocket::UnconnectedState;
    if (isWhole && !query.text.empty()) query.result = 0;
    if (query.text.size() >= longestAnswer) query.result = QtTimeClient::badAnswer;
}

void ask(Query& query) {
    const QHostInfo info = QHostInfo::fromName(query.place.host);
    qsizetype addressesLeft = info.addresses().size();
    for (const QHostAddress& address : info.addresses()) {
        QTcpSocket socket;
        socket.setProxy(QNetworkProxy::NoProxy);
        socket.setReadBufferSize(longestAnswer);
        const Steady::time_point start = Steady::now();
        socket.connectToHost(address, query.place.port, QIODevice::ReadOnly);
        if (!socket.waitForConnected(query.shareOf(addressesLeft--))) continue;
        const auto roundTrip = Steady::now() - start;
        query.delay = std::chrono::duration_cast<std::chrono::milliseconds>(roundTrip / 2);
        readAnswer(socket, query);
        return;
    }
}

/// UTC, to the millisecond, and how far local time is ahead, from one reading.
struct MachineTime {
    UtcTime utc;
    std::chrono::minutes aheadOfUtc;
};

std::chrono::sys_seconds secondsOf(const ClockParts& parts) {
    using namespace std::chrono;
    const sys_days day = year{parts.year} / parts.month / parts.day;
    return day + hours{parts.hour} + minutes{parts.minute} + seconds{parts.second};
}

MachineTime machineTime(const Clock& clock) {
    const ClockReading reading = clock.read();
    const std::chrono::sys_seconds utc = secondsOf(reading.utc);
    return {utc + std::chrono::milliseconds{reading.utcMicroseconds / 1000},
            std::chrono::duration_cast<std::chrono::minutes>(secondsOf(reading.local) - utc)};
}

template <class... Numbers>
std::string formatted(const char* format, Numbers... numbers) {
    std::array<char, 40> text{};
    std::snprintf(text.data(), text.size(), format, numbers...);
    return text.data();
}

}  // namespace

int setMachineClock(UtcTime time) {
    const auto milliseconds = time.time_since_epoch().count();
    const std::timespec value{static_cast<std::time_t>(milliseconds / 1000),
                              static_cast<long>(milliseconds % 1000 * 1'000'000)};
    return clock_settime(CLOCK_REALTIME, &value) == 0 ? 0 : errno;
}

BootClock::time_point BootClock::now() {
    std::timespec value{};
    clock_gettime(CLOCK_BOOTTIME, &value);
    return time_point{std::chrono::seconds{value.tv_sec} + std::chrono::nanoseconds{value.tv_nsec}};
}

QtTimeClient::QtTimeClient(const Clock& clock, ClockSetter setter)
    : m_clock(clock), m_setter(std::move(setter)) {}

void QtTimeClient::setHost(std::string_view host) {
    m_host = host;
}

void QtTimeClient::setTimeoutSeconds(int seconds) {
    m_timeout = std::chrono::seconds{std::clamp(seconds, 1, 600)};
}

int QtTimeClient::QueryTime() {
    // Servers want to be left alone for a while, and what one has told goes on by itself.
    if (m_hasLastAnswer && m_host == m_toldBy && BootClock::now() - m_toldAt < restSpan) return 0;
    m_hasLastAnswer = false;
    const std::optional<Place> place = placeOf(m_host);
    if (!place || !QCoreApplication::instance()) return noHost;
    const auto query = std::make_shared<Query>();
    query->place = *place;
    query->end = Steady::now() + m_timeout;
    QThread* const thread = QThread::create([query] {
        ask(*query);
        query->wait.finish();
    });
    thread->setObjectName(QStringLiteral("time"));
    QObject::connect(thread, &QThread::finished, thread, &QObject::deleteLater);
    thread->start();
    if (!query->wait.waitFor(m_timeout + 200ms)) return noAnswer;
    if (query->result != 0) return query->result;

    const std::optional<DaytimeReply> reply = readDaytimeReply(query->text);
    if (!reply) return badAnswer;
    const MachineTime machine = machineTime(m_clock);
    m_told = instantOf(*reply, machine.utc, machine.aheadOfUtc) + query->delay;
    m_toldAt = query->textAt;
    m_toldBy = m_host;
    m_hasAnswer = m_hasLastAnswer = true;
    return 0;
}

UtcTime QtTimeClient::now() const {
    return m_told + std::chrono::duration_cast<std::chrono::milliseconds>(BootClock::now() - m_toldAt);
}

ClockParts QtTimeClient::localNow() const {
    using namespace std::chrono;
    const auto local = now() + machineTime(m_clock).aheadOfUtc;
    const sys_days day = floor<days>(local);
    const year_month_day date{day};
    const hh_mm_ss time{floor<seconds>(local - day)};
    return {static_cast<int>(date.year()),
            static_cast<int>(static_cast<unsigned>(date.month())),
            static_cast<int>(static_cast<unsigned>(date.day())),
            static_cast<int>(time.hours().count()),
            static_cast<int>(time.minutes().count()),
            static_cast<int>(time.seconds().count())};
}

std::string QtTimeClient::date() const {
    if (!m_hasAnswer) return {};
    const ClockParts local = localNow();
    return formatted("%02d/%02d/%04d", local.month, local.day, local.year);
}

std::string QtTimeClient::timeOfDay() const {
    if (!m_hasAnswer) return {};
    const ClockParts local = localNow();
    return formatted("%02d:%02d:%02d", local.hour, local.minute, local.second);
}

int QtTimeClient::SetClock() {
    return m_hasLastAnswer ? m_setter(now()) : EINVAL;
}

}  // namespace vantrace
