#include "station/steering/lone_follower.h"

#include <limits>
#include <utility>

namespace vantrace {

namespace {

/// How far beyond the limits an azimuth is.
double excess(double azimuthDeg, const RotatorLimits& limits) {
    return std::max({0.0, limits.azimuthLeastDeg - azimuthDeg, azimuthDeg - limits.azimuthMostDeg});
}

double lowestTurn(double azimuthDeg, const RotatorLimits& limits) {
    return azimuthDeg - wholeTurnDeg * std::floor((azimuthDeg - limits.azimuthLeastDeg) / wholeTurnDeg);
}

}  // namespace

RotatorPosition LoneFollower::chosen(const Direction& direction, const RotatorLimits& limits) const {
    const double lowest = lowestTurn(direction.azimuthDeg, limits);
    double best = lowest;
    double bestRoom = -std::numeric_limits<double>::max();
    for (int turns = -1;; ++turns) {
        const double azimuth = lowest + turns * wholeTurnDeg;
        if (!(azimuth <= limits.azimuthMostDeg + wholeTurnDeg)) break;
        const double beyond = excess(azimuth, limits);
        // Where no turn is within the limits, the least excess is best.
        const double room = beyond > 0.0 ? -beyond
                                         : 1.0 + (m_movementDeg < 0.0 ? azimuth - limits.azimuthLeastDeg
                                                                      : limits.azimuthMostDeg - azimuth);
        if (room > bestRoom) {
            best = azimuth;
            bestRoom = room;
        }
    }
    return {best, direction.elevationDeg};
}

void LoneFollower::goOnFrom(const RotatorPosition& position) {
    *this = {};
    m_last = position;
    m_isFlipped = position.elevationDeg > halfTurnDeg / 2.0;
}

RotatorPosition LoneFollower::held(const RotatorPosition& position, const RotatorLimits& limits) {
    const RotatorPosition nearest = within(limits, position);
    // What is below the horizon isn't missed.
    const bool isBelow = position.elevationDeg < 0.0 || position.elevationDeg > halfTurnDeg;
    const double missed = isBelow ? 0.0 : position.elevationDeg - nearest.elevationDeg;
    m_isOutOfReach = excess(position.azimuthDeg, limits) > limitSlackDeg || std::abs(missed) > limitSlackDeg;
    return nearest;
}

RotatorPosition LoneFollower::onward(const Direction& direction) const {
    const double last = m_last->azimuthDeg;
    if (!m_isFlipped) return {nearestTurn(direction.azimuthDeg, last), direction.elevationDeg};
    return {nearestTurn(direction.azimuthDeg + halfTurnDeg, last), halfTurnDeg - direction.elevationDeg};
}

std::optional<RotatorPosition> LoneFollower::follow(const Direction& direction, const RotatorLimits& limits) {
    const std::optional<Direction> before = std::exchange(m_seen, direction);
    m_hasTurned = false;
    if (before) m_movementDeg = std::remainder(direction.azimuthDeg - before->azimuthDeg, wholeTurnDeg);
    if (!m_last) {
        const RotatorLimits certain = withoutDoubt(limits);
        const double lowest = lowestTurn(direction.azimuthDeg, certain);
        const bool hasChoice = lowest + wholeTurnDeg <= limits.azimuthMostDeg;
        if (hasChoice && !before) return std::nullopt;
        m_last = chosen(direction, certain);
        return held(*m_last, limits);
    }
    RotatorPosition next = onward(direction);
    const bool isTooFar = excess(next.azimuthDeg, limits) > limitSlackDeg;
    // Below the horizon an antenna that looks over the top waits at the horizon.
    const bool isTooFlat =
        m_isFlipped && std::min(next.elevationDeg, halfTurnDeg) > limits.elevationMostDeg + limitSlackDeg;
    if (isTooFar || isTooFlat) {
        const RotatorPosition other = chosen(direction, withoutDoubt(limits));
        m_hasTurned = m_isFlipped || std::abs(other.azimuthDeg - next.azimuthDeg) > halfTurnDeg;
        m_isFlipped = false;
        next = other;
    }
    m_last = next;
    return held(next, limits);
}

}  // namespace vantrace
