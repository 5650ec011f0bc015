#include "station/steering/lone_follower.h"

#include <limits>
#include <utility>

namespace vantrace {

namespace {

constexpr double wholeTurnDeg = 360.0;

/// How far beyond the limits an azimuth is.
double excess(double azimuthDeg, const RotatorLimits& limits) {
    return std::max({0.0, limits.azimuthLeastDeg - azimuthDeg, azimuthDeg - limits.azimuthMostDeg});
}

double lowestTurn(double azimuthDeg, const RotatorLimits& limits) {
    return azimuthDeg - wholeTurnDeg * std::floor((azimuthDeg - limits.azimuthLeastDeg) / wholeTurnDeg);
}

}  // namespace

RotatorPosition LoneFollower::chosen(const Direction& direction, const RotatorLimits& limits) const {
    double best = lowestTurn(direction.azimuthDeg, limits);
    double bestRoom = -std::numeric_limits<double>::max();
    for (double azimuth = best - wholeTurnDeg; azimuth <= limits.azimuthMostDeg + wholeTurnDeg;
         azimuth += wholeTurnDeg) {
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
}

RotatorPosition LoneFollower::held(const RotatorPosition& position, const RotatorLimits& limits) {
    const RotatorPosition nearest = within(limits, position);
    // What is below the horizon isn't missed.
    const double missed = position.elevationDeg < 0.0 ? 0.0 : position.elevationDeg - nearest.elevationDeg;
    m_isOutOfReach = excess(position.azimuthDeg, limits) > limitSlackDeg || std::abs(missed) > limitSlackDeg;
    return nearest;
}

std::optional<RotatorPosition> LoneFollower::follow(const Direction& direction, const RotatorLimits& limits) {
    const std::optional<Direction> before = std::exchange(m_seen, direction);
    m_hasTurned = false;
    if (before) m_movementDeg = std::remainder(direction.azimuthDeg - before->azimuthDeg, wholeTurnDeg);
    if (!m_last) {
        const double lowest = lowestTurn(direction.azimuthDeg, limits);
        const bool hasChoice = lowest + wholeTurnDeg <= limits.azimuthMostDeg;
        if (hasChoice && !before) return std::nullopt;
        m_last = chosen(direction, limits);
        return held(*m_last, limits);
    }
    const double onward = nearestTurn(direction.azimuthDeg, m_last->azimuthDeg);
    const RotatorPosition next = excess(onward, limits) <= limitSlackDeg
                                     ? RotatorPosition{onward, direction.elevationDeg}
                                     : chosen(direction, limits);
    m_hasTurned = std::abs(next.azimuthDeg - onward) > wholeTurnDeg / 2.0;
    m_last = next;
    return held(next, limits);
}

}  // namespace vantrace
