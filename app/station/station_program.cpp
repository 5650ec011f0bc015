#include "app/station/station_program.h"

#include <algorithm>
#include <string>
#include <utility>

namespace vantrace {

namespace {

constexpr int tickMs = 100;
constexpr double longestEndSeconds = 1.5;

}  // namespace

StationProgram::StationProgram(const StationOptions& options, const Surroundings& surroundings)
    : m_options(options), m_surroundings(surroundings) {
    m_running.start();
    if (options.rotator) {
        m_rotator = std::make_unique<RotatorControl>(*wire("rotator", *options.rotator).session,
                                                     options.deadBandDeg, surroundings.tell);
    }
    const bool hasTwoRadios = options.transmitter.has_value();
    if (options.radio) {
        addRadio("radio", *options.radio,
                 hasTwoRadios ? RadioControl::Use::receiver : RadioControl::Use::transceiver);
    }
    if (hasTwoRadios) addRadio("transmitter", *options.transmitter, RadioControl::Use::transmitter);
    Steering::Devices devices{m_rotator.get(), {}};
    for (const auto& radio : m_radios) devices.radios.push_back(radio.get());
    m_steering = std::make_unique<Steering>(options.steering, std::move(devices), surroundings.passes,
                                            surroundings.tell);
    m_line = std::make_unique<LineSource>(
        options.line,
        [this](std::string_view line) {
            if (!m_done) m_steering->lineCame(line, m_surroundings.now(), runningSeconds());
        },
        surroundings.tell);
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { tick(); });
    m_timer.start(tickMs);
}

/// The wires are told nothing any more.
StationProgram::~StationProgram() {
    m_timer.stop();
    for (const Wire& wire : m_wires) wire.transport->drop();
}

StationProgram::Wire& StationProgram::wire(const char* word, const NetworkAddress& address) {
    const auto now = [this] { return runningSeconds(); };
    const auto add = [&](auto transport) {
        auto session = std::make_unique<DaemonSession>(std::string(word) + " at " + address.text(),
                                                       *transport, m_surroundings.tell);
        transport->setSession(*session);
        m_wires.push_back({std::move(transport), std::move(session)});
    };
    if (m_options.isDry) {
        add(std::make_unique<PrintedTransport>(word, m_surroundings.out, now));
    } else {
        add(std::make_unique<SocketTransport>(address, now));
    }
    return m_wires.back();
}

void StationProgram::addRadio(const char* word, const NetworkAddress& address, RadioControl::Use use) {
    m_radios.push_back(std::make_unique<RadioControl>(*wire(word, address).session, use, m_options.tuneStepHz,
                                                      m_surroundings.tell, m_options.vfos));
}

double StationProgram::runningSeconds() const {
    constexpr double secondsPerMs = 1e-3;
    return secondsPerMs * static_cast<double>(m_running.elapsed());
}

void StationProgram::tick() {
    const double now = runningSeconds();
    for (const Wire& wire : m_wires) wire.session->tick(now);
    if (m_done) {
        lookForTheEnd();
        return;
    }
    m_line->tick(now);
    if (m_rotator) m_rotator->tick(now);
    m_steering->tick(now);
}

void StationProgram::finish(const std::function<void()>& done) {
    if (m_done) return;
    m_steering->stop();
    m_done = done;
    m_endAt = runningSeconds() + longestEndSeconds;
    lookForTheEnd();
}

void StationProgram::lookForTheEnd() {
    const bool isIdle = std::ranges::all_of(m_wires, [](const Wire& wire) { return wire.session->isIdle(); });
    if (!isIdle && runningSeconds() < m_endAt) return;
    m_timer.stop();
    m_done();
}

}  // namespace vantrace
