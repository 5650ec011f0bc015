// The tracker's line, read from its socket.
#pragma once

#include <QLocalSocket>
#include <QTcpSocket>
#include <functional>
#include <string>
#include <string_view>

#include "app/station/network_address.h"
#include "station/steering/daemon_session.h"
#include "station/steering/line_assembler.h"

namespace vantrace {

/// Connects again and again, with pauses of 1 to 5 seconds. Needs a QCoreApplication.
class LineSource {
  public:
    using Taker = std::function<void(std::string_view)>;

    /// `take` gets the newest of the lines that came at once, without its end; one that is too long comes
    /// cut, so that nobody takes it for one.
    LineSource(NetworkAddress address, Taker take, Tell tell);

    /// What says nothing for so long may be a connection whose other end is gone; it is made anew.
    static constexpr double quietSeconds = 30.0;

    /// Several times a second, with the seconds of a clock that only runs forward.
    void tick(double now);

  private:
    QIODevice& socket();
    void connectNow();
    void begin();
    void read();
    void fail(const QString& reason);

    NetworkAddress m_address;
    Taker m_take;
    Tell m_tell;
    LineAssembler m_lines;
    bool m_isUnderWay = false;
    bool m_isOutageTold = false;
    /// Made anew for its silence alone, which is told to nobody.
    bool m_isRenewal = false;
    bool m_isAborting = false;
    double m_lastHeardAt = 0.0;
    double m_now = 0.0;
    double m_nextAttempt = 0.0;
    double m_pauseSeconds = 0.0;
    QTcpSocket m_tcp;
    QLocalSocket m_local;
};

}  // namespace vantrace
