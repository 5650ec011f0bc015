// The part of the steering that knows the pass.
#include <utility>

#include "core/numbers.h"
#include "station/steering/steering.h"

namespace vantrace {

namespace {

/// A line that is farther off the path than this comes from other elements or another place; less is a clock
/// that goes wrong by some seconds.
constexpr double mostDisagreementDeg = 10.0;
/// After so many in a row the path isn't believed any more.
constexpr int mostDisagreements = 5;
constexpr double secondsBetweenLooks = 60.0;

}  // namespace

void Steering::lookForPass(const TrackingLine& line, const Instant& utc, double now) {
    if (now < m_nextLookAt) return;
    m_nextLookAt = now + secondsBetweenLooks;
    std::string reason;
    m_pass = m_passes.passOf(line.name, utc, reason);
    m_isWaitingTold = false;
    m_disagreements = 0;
    if (!m_pass) {
        tellAlone(reason);
        return;
    }
    if (m_isAloneTold && !agrees(line, utc)) {
        m_pass.reset();
        return;
    }
    m_isAloneTold = false;
    m_tell("the pass of " + shownLine(m_pass->name) + " from " + isoText(m_pass->start, 0) + " to " +
           isoText(m_pass->end, 0) + (m_pass->setsAtEnd ? "" : ", and longer"));
    plan(utc);
    tellPlan();
}

/// Only a path that has begun can be compared: it starts at the horizon.
bool Steering::agrees(const TrackingLine& line, const Instant& utc) const {
    const double seconds = m_pass->secondsAt(utc);
    if (seconds < 0.0) return line.direction.elevationDeg < mostDisagreementDeg;
    if (seconds > m_pass->lengthSeconds()) return true;
    return angleBetween(m_pass->directionAt(seconds), line.direction) <= mostDisagreementDeg;
}

/// One line may have been made before a clock was set, or a place changed.
bool Steering::isOffThePath(const TrackingLine& line, const Instant& utc) {
    if (agrees(line, utc)) {
        m_disagreements = 0;
        return false;
    }
    return ++m_disagreements >= mostDisagreements;
}

void Steering::leavePath(double now) {
    tellAlone("the line is of another place in the sky than the elements and the site here");
    m_pass.reset();
    m_nextLookAt = now + secondsBetweenLooks;
    goOnAlone();
}

/// On the turn on which the rotator is.
void Steering::goOnAlone() {
    m_lone = {};
    if (m_devices.rotator == nullptr || !m_wasUp) return;
    const std::optional<RotatorPosition> from = m_pointed ? m_pointed : m_devices.rotator->present();
    if (from) m_lone.goOnFrom(*from);
}

/// Of what is still to come.
void Steering::plan(const Instant& utc) {
    const double seconds = m_pass->secondsAt(utc);
    std::span<const PathPoint> ahead = m_pass->path;
    while (ahead.size() > 1 && ahead[1].seconds <= seconds) ahead = ahead.subspan(1);
    m_plannedLimits = limits();
    const std::optional<RotatorPosition> present =
        m_devices.rotator == nullptr ? std::nullopt : m_devices.rotator->present();
    m_plan = planPass(ahead, m_plannedLimits, present, seconds >= 0.0);
}

void Steering::tellPlan() const {
    if (m_devices.rotator == nullptr) return;
    for (const RotatorTurn& turn : m_plan.turns) {
        m_tell("the rotator can't follow this pass without a turn: at " +
               isoText(plusSeconds(m_pass->start, turn.seconds), 0) + " from " + shownPosition(turn.from) +
               " to " + shownPosition(turn.to));
    }
    if (m_plan.unreachableSeconds > 0.0) {
        m_tell("for " + formatNumber(m_plan.unreachableSeconds, "0") +
               " seconds of this pass the satellite is out of the rotator's reach");
    }
}

/// Made before the rotator told its limits, or where it stands, the plan may have it go the long way round.
void Steering::keepPlanCurrent(const Instant& utc) {
    const bool wasPlaceKnown = std::exchange(
        m_isPlaceKnown, m_devices.rotator != nullptr && m_devices.rotator->present().has_value());
    const bool areOthers = m_plannedLimits != limits();
    if (!areOthers && (wasPlaceKnown || !m_isPlaceKnown)) return;
    const std::vector<RotatorTurn> turnsBefore = m_plan.turns;
    plan(utc);
    if (areOthers || m_plan.turns != turnsBefore) tellPlan();
}

void Steering::followPass(const TrackingLine& line, const Instant& utc) {
    const double seconds = m_pass->secondsAt(utc);
    const bool isNear = seconds >= -m_options.leadSeconds;
    const bool isUp = seconds >= 0.0 && seconds <= m_pass->lengthSeconds();
    keepPlanCurrent(utc);
    if (!isNear) signalIsLost("what was followed is left, and the next rise isn't near");
    m_wasUp = m_wasUp || isUp;
    if (m_devices.rotator != nullptr && isUp) {
        point(m_plan.positionAt(seconds, line.direction, m_plannedLimits), false);
    } else if (m_devices.rotator != nullptr && isNear && seconds < 0.0) {
        // Where the rotator stands by now decides between ways that are as good.
        if (!m_isWaitingTold) plan(utc);
        point(m_plan.points.front().position, true);
    }
    if (seconds < 0.0 && isNear && !std::exchange(m_isWaitingTold, true)) {
        m_tell("waiting for the rise" + (m_devices.rotator == nullptr
                                             ? std::string()
                                             : " at " + shownPosition(m_plan.points.front().position)));
    }
    tune(line, isNear);
}

void Steering::endPass() {
    const bool isOver = m_pass->setsAtEnd;
    m_pass.reset();
    m_nextLookAt = 0.0;
    if (isOver) {
        signalIsLost("the pass is over");
        m_lone = {};
    } else {
        goOnAlone();
    }
}

}  // namespace vantrace
