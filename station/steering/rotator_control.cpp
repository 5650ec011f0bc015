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
/// So near, so many times in a row, it isn't on its way any more.
constexpr double standsDeg = 3.0;
constexpr int standsTimes = 4;

std::optional<double> number(const DaemonReply& reply, std::string_view key) {
    const std::optional<std::string> text = reply.value(key);
    return text ? toDouble(*text) : std::nullopt;
}

}  // namespace

std::string positionCommand(const RotatorPosition& position) {
    return "+P " + formatNumber(position.azimuthDeg, "0.00") + " " +
           formatNumber(position.elevationDeg, "0.00");
}

std::string shownPosition(const RotatorPosition& position) {
    return formatNumber(position.azimuthDeg, "0.0") + ", " + formatNumber(position.elevationDeg, "0.0");
}

RotatorControl::RotatorControl(DaemonSession& session, double deadBandDeg, Tell tell)
    : m_session(session), m_deadBandDeg(deadBandDeg), m_tell(std::move(tell)) {
    m_session.onUp = [this] { ask(); };
    m_session.onDown = [this] {
        m_told.reset();
        m_present.reset();
        m_timesTurnAbove = 0;
        if (m_park == Park::asked) m_park = Park::wanted;
    };
}

bool RotatorControl::isReady() const {
    return m_session.isConnected() && m_areLimitsAsked && m_isPositionAsked;
}

void RotatorControl::point(const RotatorPosition& position) {
    go(position, m_deadBandDeg);
}

void RotatorControl::pointExactly(const RotatorPosition& position) {
    go(position, exactDeg);
}

void RotatorControl::go(const RotatorPosition& position, double leastDeg) {
    m_park = Park::none;
    const bool isNear = m_told && std::abs(position.azimuthDeg - m_told->azimuthDeg) < leastDeg &&
                        std::abs(position.elevationDeg - m_told->elevationDeg) < leastDeg;
    if (isNear || !isReady()) return;
    m_told = position;
    const std::string command = positionCommand(position);
    m_session.post(positionSlot, command, [this, command](const DaemonReply& reply) {
        // Asked for again, it is told again.
        if (reply.code != 0) m_told.reset();
        tellRefusal(command, reply.code);
    });
}

void RotatorControl::stop() {
    m_park = Park::none;
    m_session.cancel(positionSlot);
    m_told.reset();
    m_session.post(stopSlot, "+S", [this](const DaemonReply& reply) { tellRefusal("+S", reply.code); });
}

void RotatorControl::park(const std::optional<RotatorPosition>& place) {
    m_session.cancel(positionSlot);
    m_told.reset();
    m_restingPlace = place;
    m_park = Park::wanted;
    sendPark();
}

void RotatorControl::sendPark() {
    if (m_park != Park::wanted || !isReady()) return;
    m_park = Park::asked;
    const RotatorLimits held = limitsInForce ? limitsInForce() : m_limits.value_or(RotatorLimits{});
    const std::string command = m_restingPlace ? positionCommand(turnedWithin(held, *m_restingPlace)) : "+K";
    m_session.post(positionSlot, command, [this, command](const DaemonReply& reply) {
        tellRefusal(command, reply.code);
        if (m_park == Park::asked) m_park = reply.code == 0 ? Park::none : Park::wanted;
    });
}

void RotatorControl::tick(double now) {
    m_now = now;
    if (now < m_nextQuestion) return;
    m_nextQuestion = now + questionSeconds;
    if (!m_session.isConnected()) return;
    askForPosition();
    sendPark();
}

/// What isn't answered at all ends the session, so that nothing waits for ever.
void RotatorControl::ask() {
    m_refusal = 0;
    m_areLimitsAsked = false;
    m_isPositionAsked = false;
    m_session.post(limitsSlot, "+\\dump_state", [this](const DaemonReply& reply) {
        m_areLimitsAsked = true;
        takeLimits(reply);
    });
    askForPosition();
}

void RotatorControl::askForPosition() {
    m_session.post(questionSlot, "+p", [this](const DaemonReply& reply) {
        m_isPositionAsked = true;
        takePosition(reply);
    });
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
    if (!makesSense || m_limitsOfDaemon == limits) return;
    m_limitsOfDaemon = limits;
    m_goesBelowZero = false;
    m_showsOneCircle = false;
    m_lastAzimuthDeg.reset();
    m_limits = limits;
    if (onLimits) onLimits();
}

void RotatorControl::takePosition(const DaemonReply& reply) {
    const std::optional<double> azimuth = number(reply, "Azimuth");
    const std::optional<double> elevation = number(reply, "Elevation");
    if (reply.code != 0 || !azimuth || !elevation) return;
    m_present = RotatorPosition{unwrapped(*azimuth), *elevation};
    watchAzimuthsBelowZero();
}

/// Some rotators go beyond a circle but show what they'd be within it: then they seem to be a whole turn away
/// at once, where they were sent beyond it.
double RotatorControl::unwrapped(double shownDeg) {
    const double since = m_now - std::exchange(m_shownSince, m_now);
    const bool isSentBeyond =
        m_told && (m_told->azimuthDeg < -limitSlackDeg || m_told->azimuthDeg > wholeTurnDeg + limitSlackDeg);
    if (isSentBeyond && m_lastAzimuthDeg && since < 2.0 * questionSeconds &&
        std::abs(shownDeg - *m_lastAzimuthDeg) > wholeTurnDeg / 2.0) {
        m_showsOneCircle = true;
    }
    const double azimuth =
        m_showsOneCircle && m_lastAzimuthDeg ? nearestTurn(shownDeg, *m_lastAzimuthDeg) : shownDeg;
    m_lastAzimuthDeg = azimuth;
    return azimuth;
}

/// A rotator that goes to a whole turn above what it was told, and stays there, has no azimuths below 0,
/// whatever its driver says.
void RotatorControl::watchAzimuthsBelowZero() {
    if (m_present->azimuthDeg < -limitSlackDeg) m_goesBelowZero = true;
    const bool isTurnAbove = m_told && m_told->azimuthDeg < -limitSlackDeg &&
                             std::abs(m_present->azimuthDeg - m_told->azimuthDeg - wholeTurnDeg) <= standsDeg;
    m_timesTurnAbove = isTurnAbove ? m_timesTurnAbove + 1 : 0;
    if (m_timesTurnAbove < standsTimes || !m_limits || !limitsInForce) return;
    if (!limitsInForce().isBelowZeroDoubtful) return;
    m_timesTurnAbove = 0;
    m_limits->azimuthLeastDeg = 0.0;
    m_tell("told to go to " + shownPosition(*m_told) + ", the rotator stands at " +
           shownPosition(*m_present) + ": azimuths below 0 are left out");
    if (onLimits) onLimits();
}

/// Once for as long as it goes on.
void RotatorControl::tellRefusal(const std::string& command, int code) {
    if (std::exchange(m_refusal, code) == code || code == 0) return;
    m_tell("the rotator refuses " + command.substr(1) + ": " + daemonCodeText(code));
}

}  // namespace vantrace
