#include "station/steering/rotator_control.h"

#include <cmath>
#include <utility>

#include "core/numbers.h"

namespace vantrace {

namespace {

/// Slots of the session, in the order in which they take turns.
constexpr int stopSlot = 0;
constexpr int positionSlot = 1;
constexpr int questionSlot = 2;
constexpr int limitsSlot = 3;

constexpr double questionSeconds = 2.0;
/// Half of the last decimal that is told.
constexpr double exactDeg = 0.005;

std::optional<double> number(const DaemonReply& reply, std::string_view key) {
    const std::optional<std::string> text = reply.value(key);
    return text ? toDouble(*text) : std::nullopt;
}

}  // namespace

std::string positionCommand(const RotatorPosition& position) {
    return "+P " + formatNumber(position.azimuthDeg, "0.00") + " " +
           formatNumber(position.elevationDeg, "0.00");
}

RotatorControl::RotatorControl(DaemonSession& session, double deadBandDeg, Tell tell)
    : m_session(session), m_deadBandDeg(deadBandDeg), m_tell(std::move(tell)) {
    m_session.onUp = [this] { askForLimits(); };
    m_session.onDown = [this] {
        m_told.reset();
        m_present.reset();
    };
}

void RotatorControl::point(const RotatorPosition& position) {
    go(position, m_deadBandDeg);
}

void RotatorControl::pointExactly(const RotatorPosition& position) {
    go(position, exactDeg);
}

void RotatorControl::go(const RotatorPosition& position, double leastDeg) {
    const bool isNear = m_told && std::abs(position.azimuthDeg - m_told->azimuthDeg) < leastDeg &&
                        std::abs(position.elevationDeg - m_told->elevationDeg) < leastDeg;
    if (isNear || !m_session.isConnected()) return;
    m_told = position;
    const std::string command = positionCommand(position);
    m_session.post(positionSlot, command, [this, command](const DaemonReply& reply) {
        // Asked for again, it is told again.
        if (reply.code != 0) m_told.reset();
        tellRefusal(command, reply.code);
    });
}

void RotatorControl::stop() {
    m_session.cancel(positionSlot);
    m_told.reset();
    m_session.post(stopSlot, "+S", [this](const DaemonReply& reply) { tellRefusal("+S", reply.code); });
}

void RotatorControl::park() {
    m_session.cancel(positionSlot);
    m_told.reset();
    m_session.post(positionSlot, "+K", [this](const DaemonReply& reply) { tellRefusal("+K", reply.code); });
}

void RotatorControl::tick(double now) {
    if (now < m_nextQuestion) return;
    m_nextQuestion = now + questionSeconds;
    m_session.post(questionSlot, "+p", [this](const DaemonReply& reply) { takePosition(reply); });
}

void RotatorControl::askForLimits() {
    m_refusal = 0;
    m_session.post(limitsSlot, "+\\dump_state", [this](const DaemonReply& reply) { takeLimits(reply); });
}

void RotatorControl::takeLimits(const DaemonReply& reply) {
    const std::optional<double> azimuthLeast = number(reply, "Minimum Azimuth");
    const std::optional<double> azimuthMost = number(reply, "Maximum Azimuth");
    const std::optional<double> elevationLeast = number(reply, "Minimum Elevation");
    const std::optional<double> elevationMost = number(reply, "Maximum Elevation");
    if (!azimuthLeast || !azimuthMost || !elevationLeast || !elevationMost) return;
    const RotatorLimits limits{*azimuthLeast, *azimuthMost, *elevationLeast, *elevationMost};
    const bool makesSense = limits.azimuthMostDeg - limits.azimuthLeastDeg >= 1.0 &&
                            limits.azimuthLeastDeg >= -720.0 && limits.azimuthMostDeg <= 1080.0 &&
                            limits.elevationMostDeg >= limits.elevationLeastDeg &&
                            limits.elevationLeastDeg >= -90.0 && limits.elevationMostDeg <= 270.0;
    if (!makesSense || (m_limits && *m_limits == limits)) return;
    m_limits = limits;
    if (onLimits) onLimits();
}

void RotatorControl::takePosition(const DaemonReply& reply) {
    const std::optional<double> azimuth = number(reply, "Azimuth");
    const std::optional<double> elevation = number(reply, "Elevation");
    if (reply.code == 0 && azimuth && elevation) m_present = RotatorPosition{*azimuth, *elevation};
}

/// Once for as long as it goes on.
void RotatorControl::tellRefusal(const std::string& command, int code) {
    if (std::exchange(m_refusal, code) == code || code == 0) return;
    m_tell("the rotator refuses " + command.substr(1) + ": " + daemonCodeText(code));
}

}  // namespace vantrace
