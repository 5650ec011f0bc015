// The tracker's own line, second by second, over its own socket, and beside it what rotator and radio say by
// then. Run by scripts/try-station.
// Arguments: program folder, satellite, latitude, longitude east, port of the line, of rotctld and of
// rigctld, seconds.
#include <QCoreApplication>
#include <QTcpSocket>
#include <QTimer>
#include <chrono>
#include <cstdio>
#include <memory>
#include <optional>
#include <string>

#include "core/program_state.h"
#include "orbit/orbit_engine.h"
#include "platform/qt/qt_line_publisher.h"
#include "platform/system_clock.h"
#include "station/steering/tracking_line.h"
#include "station/tracker.h"
#include "tests/support/test_services.h"

namespace {

using namespace vantrace;

/// The tracker with the link on, by the machine's clock.
class Tracker {
  public:
    Tracker(const std::string& folder, const std::string& satellite, double latitudeDeg, double longitudeDeg,
            std::uint16_t port)
        : m_publisher(LinePlaces{port, {}}),
          m_services{m_clock,         m_fakes.events,     m_fakes.settings,    m_fakes.speech,
                     m_fakes.dialogs, m_fakes.desktop,    m_fakes.displayMode, m_fakes.process,
                     m_fakes.capture, m_fakes.pictures,   m_fakes.textPainter, m_fakes.printer,
                     m_fakes.fetcher, m_fakes.timeClient, m_publisher,         m_fakes.errorLog,
                     m_fakes.windows, commaFormat()} {
        m_state.AppPath = folder;
        m_state.OrbitEngine = std::make_shared<OrbitEngine>(&m_clock);
        m_state.OrbitEngine->EngineSetKepPath(folder);
        m_state.OrbitEngine->EngineSetLatitude(latitudeDeg);
        m_state.OrbitEngine->EngineSetLongitude(longitudeDeg);
        m_state.OrbitEngine->EngineSetHeight(0.0);
        Form_Load(m_form, m_state, m_services);
        m_state.TrackerTag = satellite;
        m_form.CHonOff = true;
        CHonOff_Click(m_form, m_services);
    }

    TrackingLine second() {
        Timer1_Timer(m_form, m_state, m_services);
        std::string fault;
        const std::optional<TrackingLine> line = readTrackingLine(m_form.Tracking, fault);
        if (!line) std::printf("FAILED  the tracker's own line can't be read: %s\n", fault.c_str());
        return line.value_or(TrackingLine{});
    }
    void close() { Form_Unload(m_form, m_state, m_services); }

  private:
    static MachineFormat commaFormat() {
        MachineFormat format;
        format.decimalMark = ',';
        return format;
    }

    TestServices m_fakes;
    SystemClock m_clock;
    QtLinePublisher m_publisher;
    Services m_services;
    ProgramState m_state;
    TrackerForm m_form;
};

/// What a daemon says to a question, each time over a connection of its own; nothing where it is dead.
std::optional<double> asked(std::uint16_t port, const char* question, const char* key) {
    QTcpSocket socket;
    socket.connectToHost(QStringLiteral("127.0.0.1"), port);
    if (!socket.waitForConnected(200)) return std::nullopt;
    socket.write(question);
    QByteArray answer;
    while (!answer.contains("RPRT") && socket.waitForReadyRead(500)) answer += socket.readAll();
    const qsizetype start = answer.indexOf(key);
    if (start < 0) return std::nullopt;
    const qsizetype value = start + static_cast<qsizetype>(std::string_view(key).size());
    return answer.mid(value, answer.indexOf('\n', value) - value).toDouble();
}

struct Figures {
    int seconds = 0;
    int followed = 0;
    int lost = 0;
    int tuned = 0;
    int untuned = 0;
    double worstDeg = 0.0;
    double worstHz = 0.0;
};

class Trial {
  public:
    Trial(Tracker& tracker, std::uint16_t rotator, std::uint16_t radio)
        : m_tracker(tracker), m_rotator(rotator), m_radio(radio) {}

    /// The daemons are asked just before the next line, so that they have had their second.
    void second() {
        if (m_line && m_line->direction.elevationDeg > 0.0) compare();
        m_line = m_tracker.second();
    }
    const Figures& figures() const { return m_figures; }

  private:
    void compare() {
        ++m_figures.seconds;
        const auto azimuth = asked(m_rotator, "+p\n", "Azimuth: ");
        const auto elevation = asked(m_rotator, "+p\n", "Elevation: ");
        const auto downlink = asked(m_radio, "+f\n", "Frequency: ");
        const auto uplink = asked(m_radio, "+i\n", "TX Frequency: ");
        const Direction& wanted = m_line->direction;
        const double off = azimuth && elevation ? angleBetween({*azimuth, *elevation}, wanted) : -1.0;
        const double offHz = downlink && uplink ? std::max(std::abs(*downlink - *m_line->downlinkHz),
                                                           std::abs(*uplink - *m_line->uplinkHz))
                                                : -1.0;
        std::printf("%4d  az %6.2f el %6.2f  rotator %7.2f %6.2f  off %6.2f  DN %.0f UP %.0f  off %.0f Hz\n",
                    m_figures.seconds, wanted.azimuthDeg, wanted.elevationDeg, azimuth.value_or(-1),
                    elevation.value_or(-1), off, *m_line->downlinkHz, *m_line->uplinkHz, offHz);
        std::fflush(stdout);
        countAngle(off);
        countFrequency(offHz);
    }
    /// The dead band of 2 degrees, a second's movement of the satellite, and what the rotator lags.
    void countAngle(double off) {
        constexpr double mostDeg = 4.0;
        if (off >= 0.0 && off <= mostDeg) {
            m_isFollowing = true;
            ++m_figures.followed;
            m_figures.worstDeg = std::max(m_figures.worstDeg, off);
        } else if (off < 0.0) {
            m_isFollowing = false;
        } else if (m_isFollowing) {
            ++m_figures.lost;
        }
    }
    void countFrequency(double off) {
        constexpr double mostHz = 10.0;
        if (off >= 0.0 && off <= mostHz) {
            m_isTuned = true;
            ++m_figures.tuned;
            m_figures.worstHz = std::max(m_figures.worstHz, off);
        } else if (off < 0.0) {
            m_isTuned = false;
        } else if (m_isTuned) {
            ++m_figures.untuned;
        }
    }

    Tracker& m_tracker;
    std::uint16_t m_rotator;
    std::uint16_t m_radio;
    std::optional<TrackingLine> m_line;
    bool m_isFollowing = false;
    bool m_isTuned = false;
    Figures m_figures;
};

}  // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    if (argc != 9) return 2;
    const auto port = [&](int i) { return static_cast<std::uint16_t>(std::stoi(argv[i])); };
    Tracker tracker(argv[1], argv[2], std::stod(argv[3]), std::stod(argv[4]), port(5));
    Trial trial(tracker, port(6), port(7));
    const int seconds = std::stoi(argv[8]);
    int past = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
        if (++past > seconds) {
            tracker.close();
            // The empty line goes out before the socket does.
            timer.stop();
            QTimer::singleShot(500, [] { QCoreApplication::quit(); });
            return;
        }
        trial.second();
    });
    timer.start(1000);
    QCoreApplication::exec();
    const Figures& figures = trial.figures();
    std::printf("figures: seconds %d followed %d lost %d worst %.2f tuned %d untuned %d worst %.0f\n",
                figures.seconds, figures.followed, figures.lost, figures.worstDeg, figures.tuned,
                figures.untuned, figures.worstHz);
    return 0;
}
