#include "app/station/line_source.h"

#include <algorithm>
#include <utility>

#include "station/steering/tracking_line.h"

namespace vantrace {

namespace {

constexpr double longestPauseSeconds = 5.0;

}  // namespace

LineSource::LineSource(NetworkAddress address, Taker take, Tell tell)
    : m_address(std::move(address)),
      m_take(std::move(take)),
      m_tell(std::move(tell)),
      m_lines(longestTrackingLine) {
    QObject::connect(&m_tcp, &QTcpSocket::connected, &m_tcp, [this] { begin(); });
    QObject::connect(&m_tcp, &QTcpSocket::readyRead, &m_tcp, [this] { read(); });
    QObject::connect(&m_tcp, &QTcpSocket::errorOccurred, &m_tcp, [this] { fail(m_tcp.errorString()); });
    QObject::connect(&m_local, &QLocalSocket::connected, &m_local, [this] { begin(); });
    QObject::connect(&m_local, &QLocalSocket::readyRead, &m_local, [this] { read(); });
    QObject::connect(&m_local, &QLocalSocket::errorOccurred, &m_local,
                     [this] { fail(m_local.errorString()); });
}

QIODevice& LineSource::socket() {
    if (m_address.isLocal()) return m_local;
    return m_tcp;
}

void LineSource::tick(double now) {
    m_now = now;
    const bool isQuiet = m_isUnderWay && now - m_lastHeardAt > quietSeconds;
    if ((m_isUnderWay && !isQuiet) || now < m_nextAttempt) return;
    m_isRenewal = isQuiet && !m_isOutageTold;
    m_isUnderWay = true;
    m_lastHeardAt = now;
    connectNow();
}

void LineSource::connectNow() {
    m_isAborting = true;
    m_local.abort();
    m_tcp.abort();
    m_isAborting = false;
    if (m_address.isLocal()) {
        m_local.connectToServer(QString::fromStdString(m_address.localSocket), QIODevice::ReadOnly);
    } else {
        m_tcp.connectToHost(QString::fromStdString(m_address.host), m_address.port, QIODevice::ReadOnly);
    }
}

void LineSource::begin() {
    m_lines.clear();
    m_pauseSeconds = 0.0;
    m_isOutageTold = false;
    if (std::exchange(m_isRenewal, false)) return;
    m_tell("connected to the tracker's line at " + m_address.text());
}

void LineSource::read() {
    m_lastHeardAt = m_now;
    const QByteArray bytes = socket().readAll();
    const std::vector<std::string> lines =
        m_lines.take({bytes.data(), static_cast<std::size_t>(bytes.size())});
    if (!lines.empty()) m_take(lines.back());
}

void LineSource::fail(const QString& reason) {
    if (m_isAborting) return;
    m_isUnderWay = false;
    m_isRenewal = false;
    m_pauseSeconds = std::clamp(m_pauseSeconds * 2.0, 1.0, longestPauseSeconds);
    m_nextAttempt = m_now + m_pauseSeconds;
    if (std::exchange(m_isOutageTold, true)) return;
    m_tell("the tracker's line at " + m_address.text() + " isn't there (" + reason.toStdString() +
           "); it is tried again");
}

}  // namespace vantrace
