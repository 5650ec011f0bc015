// The station put together: the line, the daemons, the steering, and the engine that looks ahead.
#pragma once

#include <QElapsedTimer>
#include <QTimer>
#include <functional>
#include <memory>
#include <vector>

#include "app/station/daemon_sockets.h"
#include "app/station/line_source.h"
#include "app/station/station_options.h"
#include "orbit/instant.h"
#include "station/steering/steering.h"

namespace vantrace {

class StationProgram {
  public:
    struct Surroundings {
        /// UTC, now.
        std::function<Instant()> now;
        PassSource& passes;
        Tell tell;
        /// Where a dry run prints.
        std::ostream& out;
    };

    /// Needs a QCoreApplication; works while its event loop runs.
    StationProgram(const StationOptions& options, const Surroundings& surroundings);
    ~StationProgram();
    StationProgram(const StationProgram&) = delete;
    StationProgram& operator=(const StationProgram&) = delete;

    /// Stops the rotator, and calls `done` when that has been answered, or after a second and a half.
    void finish(const std::function<void()>& done);

  private:
    struct Wire {
        std::unique_ptr<DaemonTransport> transport;
        std::unique_ptr<DaemonSession> session;
    };

    Wire& wire(const char* word, const NetworkAddress& address);
    void addRadio(const char* word, const NetworkAddress& address, RadioControl::Use use);
    void tick();
    void lookForTheEnd();
    double runningSeconds() const;

    StationOptions m_options;
    Surroundings m_surroundings;
    QElapsedTimer m_running;
    std::vector<Wire> m_wires;
    std::unique_ptr<RotatorControl> m_rotator;
    std::vector<std::unique_ptr<RadioControl>> m_radios;
    std::unique_ptr<Steering> m_steering;
    std::unique_ptr<LineSource> m_line;
    QTimer m_timer;
    std::function<void()> m_done;
    double m_endAt = 0.0;
};

}  // namespace vantrace
