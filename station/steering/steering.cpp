#include "station/steering/steering.h"

#include <utility>

#include "core/numbers.h"

namespace vantrace {

namespace {

/// Where nothing is known of the path, an antenna waits so low for a satellite that comes up.
constexpr double lowestFollowedDeg = -3.0;
/// However often the name changes.
constexpr double secondsBetweenNames = 1.0;
constexpr double secondsBetweenFaults = 10.0;
/// A pass is over for good when its last line has come.
constexpr double afterSetSeconds = 1.0;

std::string degrees(double value) {
    return formatNumber(value, "0.0");
}

}  // namespace

Steering::Steering(SteeringOptions options, Devices devices, PassSource& passes, Tell tell)
    : m_options(std::move(options)),
      m_devices(std::move(devices)),
      m_passes(passes),
      m_tell(std::move(tell)) {
    if (m_devices.rotator == nullptr) return;
    m_devices.rotator->limitsInForce = [this] { return limits(); };
    m_devices.rotator->onLimits = [this] {
        const RotatorLimits known = limits();
        m_tell("the rotator turns from " + degrees(known.azimuthLeastDeg) + " to " +
               degrees(known.azimuthMostDeg) + " degrees, and from " + degrees(known.elevationLeastDeg) +
               " to " + degrees(known.elevationMostDeg) + " in elevation");
    };
}

RotatorLimits Steering::limits() const {
    RotatorLimits limits;
    if (m_devices.rotator != nullptr) limits = m_devices.rotator->limits().value_or(limits);
    if (const auto& azimuths = m_options.azimuthLimitsDeg) {
        limits.azimuthLeastDeg = azimuths->first;
        limits.azimuthMostDeg = azimuths->second;
    } else {
        const bool isKnown = m_devices.rotator != nullptr && m_devices.rotator->goesBelowZero();
        limits.isBelowZeroDoubtful =
            !isKnown && limits.azimuthLeastDeg < 0.0 && limits.azimuthMostDeg > wholeTurnDeg;
    }
    if (const auto& elevations = m_options.elevationLimitsDeg) {
        limits.elevationLeastDeg = elevations->first;
        limits.elevationMostDeg = elevations->second;
    }
    return limits;
}

void Steering::lineCame(std::string_view text, const Instant& utc, double now) {
    if (text.empty()) {
        if (m_link == Link::off) return;
        m_tell("the tracker's link is switched off");
        halt();
        m_link = Link::off;
        m_name.clear();
        // The antenna is the user's, wherever he has left it.
        m_wasUp = false;
        return;
    }
    std::string fault;
    const std::optional<TrackingLine> line = readTrackingLine(text, fault);
    if (!line) {
        tellFault(text, fault, now);
        return;
    }
    if (m_link == Link::stale) m_tell("lines come again");
    m_link = Link::on;
    m_lastLineAt = now;
    takeLine(*line, utc, now);
}

void Steering::tick(double now) {
    if (m_link != Link::on || now - m_lastLineAt <= m_options.staleSeconds) return;
    m_link = Link::stale;
    m_tell("no line for " + numberText(m_options.staleSeconds) + " seconds: nothing is steered");
    halt();
}

void Steering::stop() {
    m_link = Link::off;
    halt();
}

/// Antenna and radio are left as they are; the next line finds them so. One that goes to its rest goes on.
void Steering::halt() {
    m_pointed.reset();
    if (m_devices.rotator != nullptr && std::exchange(m_isMoving, false)) m_devices.rotator->stop();
    for (RadioControl* const radio : m_devices.radios) radio->release();
}

void Steering::tellFault(std::string_view text, const std::string& fault, double now) {
    if (now < m_nextFaultAt) return;
    m_nextFaultAt = now + secondsBetweenFaults;
    m_tell("a line is left out, because " + fault + ": \"" + shownLine(text) + "\"");
}

/// What was followed before goes to its rest, unless the new one is near.
void Steering::takeName(const std::string& name, double now) {
    m_name = name;
    m_pass.reset();
    m_lone = {};
    m_disagreements = 0;
    m_isAloneTold = false;
    m_isReachTold = false;
    m_nextLookAt = m_lastNameAt + secondsBetweenNames;
    if (now < m_nextLookAt) return;
    m_lastNameAt = now;
    m_tell("the line is of " + shownLine(m_name));
}

void Steering::takeLine(const TrackingLine& line, const Instant& utc, double now) {
    if (line.name != m_name) takeName(line.name, now);
    if (m_pass && secondsBetween(m_pass->end, utc) > afterSetSeconds) endPass();
    if (!m_pass) lookForPass(line, utc, now);
    if (m_pass && isOffThePath(line, utc)) leavePath(now);
    if (m_pass) {
        followPass(line, utc);
    } else {
        followLine(line);
    }
}

/// Once for as long as it goes on.
void Steering::tellAlone(std::string_view reason) {
    if (std::exchange(m_isAloneTold, true)) return;
    m_tell("the line is followed alone, without a look ahead: " + std::string(reason));
}

/// Clears what says that the antenna is under way: a rest that has begun isn't stopped any more.
void Steering::signalIsLost(std::string_view reason) {
    const bool wasUp = std::exchange(m_wasUp, false);
    const bool wasMoving = std::exchange(m_isMoving, false);
    if (!wasUp && !wasMoving) return;
    m_tell(reason);
    m_pointed.reset();
    m_isReachTold = false;
    if (m_devices.rotator == nullptr) return;
    if (m_options.atLoss == SteeringOptions::AtLoss::goToPark) {
        m_devices.rotator->park(m_options.park);
    } else if (m_options.atLoss == SteeringOptions::AtLoss::parkByDaemon) {
        m_devices.rotator->park(std::nullopt);
    }
}

void Steering::point(const RotatorPosition& position, bool isExact) {
    RotatorControl& rotator = *m_devices.rotator;
    m_isMoving = true;
    if (rotator.isReady()) m_pointed = position;
    if (isExact) {
        rotator.pointExactly(position);
    } else {
        rotator.point(position);
    }
}

void Steering::followLine(const TrackingLine& line) {
    const bool isFollowed = line.direction.elevationDeg >= lowestFollowedDeg;
    tune(line, isFollowed);
    if (!isFollowed) {
        signalIsLost("the pass is over");
        m_lone = {};
        return;
    }
    m_wasUp = true;
    // Before its limits are known there is no way to choose.
    if (m_devices.rotator == nullptr || !m_devices.rotator->isReady()) return;
    const std::optional<RotatorPosition> position = m_lone.follow(line.direction, limits());
    if (!position) return;
    if (m_lone.hasTurned()) m_tell("the rotator turns back to " + shownPosition(*position));
    if (m_lone.isOutOfReach() && !std::exchange(m_isReachTold, true)) {
        m_tell("the satellite is out of the rotator's reach");
    }
    point(*position, false);
}

void Steering::tune(const TrackingLine& line, bool isWanted) {
    const bool isTuned = line.uplinkHz && line.downlinkHz && (isWanted || m_options.tunesBelowHorizon);
    for (RadioControl* const radio : m_devices.radios) {
        if (isTuned) {
            radio->tune(*line.downlinkHz, *line.uplinkHz);
        } else {
            radio->release();
        }
    }
}

}  // namespace vantrace
