#include "station/steering/steering.h"

#include <utility>

#include "core/numbers.h"

namespace vantrace {

namespace {

/// Where nothing is known of the path, an antenna waits so low for a satellite that comes up.
constexpr double lowestFollowedDeg = -3.0;
/// A line that is farther off the path than this comes from other elements or another place; less is a clock
/// that goes wrong by some seconds.
constexpr double mostDisagreementDeg = 10.0;
constexpr double secondsBetweenLooks = 60.0;
/// However often the name changes.
constexpr double secondsBetweenNames = 1.0;
constexpr double secondsBetweenFaults = 10.0;
/// A pass is over for good when its last line has come.
constexpr double afterSetSeconds = 1.0;

std::string degrees(double value) {
    return formatNumber(value, "0.0");
}

std::string place(const RotatorPosition& position) {
    return degrees(position.azimuthDeg) + ", " + degrees(position.elevationDeg);
}

}  // namespace

Steering::Steering(const SteeringOptions& options, const Devices& devices, PassSource& passes, Tell tell)
    : m_options(options), m_devices(devices), m_passes(passes), m_tell(std::move(tell)) {
    if (m_devices.rotator == nullptr) return;
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

/// Antenna and radio are left as they are; the next line finds them so.
void Steering::halt() {
    if (m_devices.rotator != nullptr && std::exchange(m_isMoving, false)) m_devices.rotator->stop();
    for (RadioControl* const radio : m_devices.radios) radio->release();
}

void Steering::tellFault(std::string_view text, const std::string& fault, double now) {
    if (now < m_nextFaultAt) return;
    m_nextFaultAt = now + secondsBetweenFaults;
    m_tell("a line is left out, because " + fault + ": \"" + shownLine(text) + "\"");
}

void Steering::takeLine(const TrackingLine& line, const Instant& utc, double now) {
    if (line.name != m_name) {
        m_name = line.name;
        m_pass.reset();
        m_lone = {};
        m_wasUp = false;
        m_isAloneTold = false;
        m_nextLookAt = m_lastNameAt + secondsBetweenNames;
        if (now >= m_nextLookAt) {
            m_lastNameAt = now;
            m_tell("the line is of " + shownLine(m_name));
        }
    }
    if (m_pass && secondsBetween(m_pass->end, utc) > afterSetSeconds) endPass();
    if (!m_pass) lookForPass(line, utc, now);
    if (m_pass && !agrees(line, utc)) {
        tellAlone("the line is of another place in the sky than the elements and the site here");
        m_pass.reset();
        m_nextLookAt = now + secondsBetweenLooks;
    }
    if (m_pass) {
        followPass(line, utc);
    } else {
        followLine(line);
    }
}

void Steering::lookForPass(const TrackingLine& line, const Instant& utc, double now) {
    if (now < m_nextLookAt) return;
    m_nextLookAt = now + secondsBetweenLooks;
    std::string reason;
    m_pass = m_passes.passOf(line.name, utc, reason);
    m_isWaitingTold = false;
    if (!m_pass) {
        tellAlone(reason);
        return;
    }
    if (!agrees(line, utc)) return;
    m_isAloneTold = false;
    m_tell("the pass of " + shownLine(m_pass->name) + " from " + isoText(m_pass->start, 0) + " to " +
           isoText(m_pass->end, 0) + (m_pass->setsAtEnd ? "" : ", and longer"));
    plan(utc);
    tellPlan();
}

/// Once for as long as it goes on.
void Steering::tellAlone(std::string_view reason) {
    if (std::exchange(m_isAloneTold, true)) return;
    m_tell("the line is followed alone, without a look ahead: " + std::string(reason));
}

/// Only a path that has begun can be compared: it starts at the horizon.
bool Steering::agrees(const TrackingLine& line, const Instant& utc) {
    const double seconds = m_pass->secondsAt(utc);
    if (seconds < 0.0) return line.direction.elevationDeg < mostDisagreementDeg;
    if (seconds > m_pass->lengthSeconds()) return true;
    return angleBetween(m_pass->directionAt(seconds), line.direction) <= mostDisagreementDeg;
}

/// Of what is still to come.
void Steering::plan(const Instant& utc) {
    const double seconds = m_pass->secondsAt(utc);
    std::span<const PathPoint> ahead = m_pass->path;
    while (ahead.size() > 1 && ahead[1].seconds <= seconds) ahead = ahead.subspan(1);
    m_plannedLimits = limits();
    const std::optional<RotatorPosition> present =
        m_devices.rotator == nullptr ? std::nullopt : m_devices.rotator->present();
    m_plan = planPass(ahead, m_plannedLimits, present);
}

void Steering::tellPlan() const {
    if (m_devices.rotator == nullptr) return;
    for (const RotatorTurn& turn : m_plan.turns) {
        m_tell("the rotator can't follow this pass without a turn: at " +
               isoText(plusSeconds(m_pass->start, turn.seconds), 0) + " from " + place(turn.from) + " to " +
               place(turn.to));
    }
    if (m_plan.unreachableSeconds > 0.0) {
        m_tell("for " + formatNumber(m_plan.unreachableSeconds, "0") +
               " seconds of this pass the satellite is out of the rotator's reach");
    }
}

void Steering::followPass(const TrackingLine& line, const Instant& utc) {
    const double seconds = m_pass->secondsAt(utc);
    const bool isNear = seconds >= -m_options.leadSeconds;
    const bool isUp = seconds >= 0.0 && seconds <= m_pass->lengthSeconds();
    m_wasUp = m_wasUp || isUp;
    if (m_plannedLimits != limits()) {
        plan(utc);
        tellPlan();
    }
    if (m_devices.rotator != nullptr && isNear) {
        m_isMoving = true;
        if (isUp) {
            m_devices.rotator->point(m_plan.positionAt(seconds, line.direction, m_plannedLimits));
        } else if (seconds < 0.0) {
            // Where the rotator stands by now decides between ways that are as good.
            if (!m_isWaitingTold) plan(utc);
            m_devices.rotator->pointExactly(m_plan.points.front().position);
        }
    }
    if (seconds < 0.0 && isNear && !std::exchange(m_isWaitingTold, true)) {
        m_tell("waiting for the rise" + (m_devices.rotator == nullptr
                                             ? std::string()
                                             : " at " + place(m_plan.points.front().position)));
    }
    tune(line, isNear);
}

void Steering::endPass() {
    const bool isOver = m_pass->setsAtEnd;
    m_pass.reset();
    m_nextLookAt = 0.0;
    if (isOver) signalIsLost();
}

void Steering::signalIsLost() {
    if (!std::exchange(m_wasUp, false)) return;
    m_tell("the pass is over");
    if (m_devices.rotator == nullptr) return;
    if (m_options.atLoss == SteeringOptions::AtLoss::goToPark) {
        m_devices.rotator->pointExactly(m_options.park);
    } else if (m_options.atLoss == SteeringOptions::AtLoss::parkByDaemon) {
        m_devices.rotator->park();
    }
}

void Steering::followLine(const TrackingLine& line) {
    const bool isFollowed = line.direction.elevationDeg >= lowestFollowedDeg;
    tune(line, isFollowed);
    if (!isFollowed) {
        signalIsLost();
        m_lone = {};
        return;
    }
    m_wasUp = true;
    if (m_devices.rotator == nullptr) return;
    const std::optional<RotatorPosition> position = m_lone.follow(line.direction, limits());
    if (!position) return;
    if (m_lone.hasTurned()) m_tell("the rotator turns back to " + place(*position));
    m_isMoving = true;
    m_devices.rotator->point(*position);
}

void Steering::tune(const TrackingLine& line, bool isWanted) {
    if (!line.uplinkHz || !line.downlinkHz) return;
    for (RadioControl* const radio : m_devices.radios) {
        if (isWanted || m_options.tunesBelowHorizon) {
            radio->tune(*line.downlinkHz, *line.uplinkHz);
        } else {
            radio->release();
        }
    }
}

}  // namespace vantrace
