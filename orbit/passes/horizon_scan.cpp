#include "orbit/passes/horizon_scan.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "orbit/earth/earth_rotation.h"
#include "orbit/passes/cubic.h"

namespace vantrace {

namespace {

/// Roots and turning points are told to this.
constexpr double closeEnoughS = 1.0e-3;
/// The last bit of way to a root or turning point is taken by two-body motion when it is no longer than this.
constexpr double shortWayS = 2.0;
/// Distance of the three positions that settle a culmination.
constexpr double parabolaOffsetS = 2.0;
constexpr int mostRefinements = 60;

HermiteCubic heightCubic(const HorizonSample& a, const HorizonSample& b) {
    const double length = b.seconds - a.seconds;
    return {a.upKm, a.upRateKmS * length, b.upKm, b.upRateKmS * length};
}

HermiteCubic sineCubic(const HorizonSample& a, const HorizonSample& b) {
    const double length = b.seconds - a.seconds;
    return {a.sine, a.sineRatePerS * length, b.sine, b.sineRatePerS * length};
}

/// A fraction of an interval, kept off its ends, so that every sample shrinks the bracket.
double inside(const HorizonSample& a, const HorizonSample& b, double fraction) {
    constexpr double margin = 1.0e-4;
    return a.seconds + (b.seconds - a.seconds) * std::clamp(fraction, margin, 1.0 - margin);
}

/// Greatest height that the cubic through two samples reaches towards the other side of the horizon, with a
/// tenth of what their tangents would allow on top: several times the cubic's error on a nearly circular
/// orbit.
double cubicBoundKm(const HorizonSample& a, const HorizonSample& b, double side) {
    const HermiteCubic cubic = heightCubic(a, b);
    const double length = b.seconds - a.seconds;
    const double meeting = (b.upKm - a.upKm - b.upRateKmS * length) / (a.upRateKmS - b.upRateKmS);
    const double tangentHeight = side * (a.upKm + a.upRateKmS * meeting);
    const double cubicHeight = side * cubic.at(cubic.turningPoint());
    return cubicHeight + 0.1 * (tangentHeight - cubicHeight);
}

}  // namespace

HorizonScan::HorizonScan(Mover& mover, const Observer& observer, double fromSeconds, int direction)
    : m_mover(mover),
      m_observer(observer),
      m_direction(direction),
      m_siderealAtStart(sinCos(mover.siderealTimeAtStart())) {
    m_last.seconds = fromSeconds;
    m_failed = !sampleAt(fromSeconds, m_last);
    m_start = m_last;
    m_upAtStart = !m_failed && m_last.upKm >= 0.0;
}

bool HorizonScan::sampleAt(double seconds, HorizonSample& result) {
    if (!m_mover.stateAt(seconds, result.state)) {
        return false;
    }
    result.seconds = seconds;
    result.greenwich = addAngles(m_siderealAtStart, sinCos(earthRotationRadPerS * seconds));
    measureHeight(m_observer, result);
    return true;
}

std::optional<HorizonEvent> HorizonScan::next(double limitSeconds) {
    HorizonSample next;
    while (!m_pending[0]) {
        if (m_failed || (limitSeconds - m_last.seconds) * m_direction <= 0.0 || !walk(limitSeconds, next)) {
            return std::nullopt;
        }
    }
    const std::optional<HorizonEvent> event = m_pending[0];
    m_pending[0] = std::exchange(m_pending[1], std::nullopt);
    return event;
}

/// One stride on, with the crossings in it; one far from the orbit's plane may be many strides long.
bool HorizonScan::walk(double limitSeconds, HorizonSample& next) {
    const Stride stride = m_mover.strideFrom(m_last.state);
    const double outOfReach =
        m_last.upKm < 0.0 ? secondsOutOfReach(m_observer, m_last, stride.apogeeKm) : 0.0;
    const bool skips = outOfReach > stride.seconds;
    double length = std::min(skips ? outOfReach : stride.seconds, std::abs(limitSeconds - m_last.seconds));
    constexpr double shortestS = 0.5;
    while (!sampleAt(m_last.seconds + m_direction * length, next)) {
        // The path ends within this stride: feel for its end by halves, so that no pass before it is lost.
        if (length <= shortestS) {
            m_failed = true;
            return false;
        }
        length *= 0.5;
    }
    if (!skips) {
        findCrossings(m_last, next, stride.smooth);
    }
    m_last = next;
    return true;
}

void HorizonScan::findCrossings(const HorizonSample& a, const HorizonSample& b, bool smooth) {
    const bool upAtA = a.upKm >= 0.0;
    const bool upAtB = b.upKm >= 0.0;
    if (upAtA != upAtB) {
        m_pending[0] = crossingBetween(a, b);
        return;
    }
    // Both ends on one side: the height has turned towards the horizon in between or it has not come near.
    const double side = upAtA ? -1.0 : 1.0;
    const bool towardsHorizon =
        side * m_direction * a.upRateKmS > 0.0 && side * m_direction * b.upRateKmS < 0.0;
    HorizonSample beyond;
    if (towardsHorizon && findTurningPoint(a, b, smooth, beyond)) {
        m_pending[0] = crossingBetween(a, beyond);
        m_pending[1] = crossingBetween(beyond, b);
    }
}

/// Looks for a moment on the other side of the horizon around the turning point between two samples.
bool HorizonScan::findTurningPoint(const HorizonSample& a, const HorizonSample& b, bool smooth,
                                   HorizonSample& beyond) {
    const double side = a.upKm >= 0.0 ? -1.0 : 1.0;
    if (smooth && cubicBoundKm(a, b, side) < 0.0) {
        return false;
    }
    HorizonSample low = a;
    HorizonSample high = b;
    double last = a.seconds;
    for (int i = 0; i < mostRefinements; ++i) {
        const double guess = inside(low, high, heightCubic(low, high).turningPoint());
        if (!sampleAt(guess, beyond)) {
            return false;
        }
        if (side * beyond.upKm >= 0.0) {
            return true;
        }
        const bool before = side * m_direction * beyond.upRateKmS > 0.0;
        const double room = std::abs((before ? high : low).seconds - beyond.seconds);
        // Twice what the tangent allows: near a low perigee of a long orbit the height is not hollow all the
        // way.
        if (side * beyond.upKm + 2.0 * std::abs(beyond.upRateKmS) * room < 0.0 ||
            std::abs(guess - last) < closeEnoughS) {
            return false;
        }
        (before ? low : high) = beyond;
        last = guess;
    }
    return false;
}

HorizonEvent HorizonScan::crossingBetween(HorizonSample a, HorizonSample b) {
    // Twice the pull on a low orbit: more than the height is ever bent by.
    constexpr double greatestBendKmS2 = 0.02;
    const bool upAtA = a.upKm >= 0.0;
    const Crossing kind = upAtA == (m_direction > 0) ? Crossing::set : Crossing::rise;
    HorizonSample middle = a;
    for (int i = 0; i < mostRefinements && std::abs(b.seconds - a.seconds) > closeEnoughS; ++i) {
        if (!sampleAt(inside(a, b, heightCubic(a, b).root()), middle)) {
            break;
        }
        const double way = -middle.upKm / middle.upRateKmS;
        if (std::abs(way) < shortWayS &&
            greatestBendKmS2 * way * way < closeEnoughS * std::abs(middle.upRateKmS)) {
            return {kind, shifted(m_observer, middle, way)};
        }
        ((middle.upKm >= 0.0) == upAtA ? a : b) = middle;
    }
    return {kind, middle};
}

HorizonSample HorizonScan::culmination(HorizonSample a, HorizonSample b) {
    const double greatestOffsetS = 0.25 * (b.seconds - a.seconds);
    HorizonSample middle = a.sine > b.sine ? a : b;
    for (int i = 0; i < mostRefinements && b.seconds - a.seconds > closeEnoughS; ++i) {
        if (!sampleAt(inside(a, b, sineCubic(a, b).turningPoint()), middle)) {
            break;
        }
        (middle.sineRatePerS > 0.0 ? a : b) = middle;
        const double way = inside(a, b, sineCubic(a, b).turningPoint()) - middle.seconds;
        if (std::abs(way) < shortWayS) {
            break;
        }
    }
    return highestNear(middle, std::min(parabolaOffsetS, greatestOffsetS));
}

/// The model's velocity is not quite the rate of its position (the drag of an old set is missing in it), so
/// that the last second is settled by positions alone: the top of the parabola through three of them.
HorizonSample HorizonScan::highestNear(const HorizonSample& guess, double offsetS) {
    constexpr int mostMoves = 4;
    HorizonSample middle = guess;
    HorizonSample before;
    HorizonSample after;
    for (int i = 0; i < mostMoves; ++i) {
        if (!sampleAt(middle.seconds - offsetS, before) || !sampleAt(middle.seconds + offsetS, after)) {
            return middle;
        }
        const double bend = before.sine - 2.0 * middle.sine + after.sine;
        if (!(bend < 0.0)) {
            return middle;
        }
        const double top = 0.5 * (before.sine - after.sine) / bend * offsetS;
        if (std::abs(top) <= offsetS) {
            return shifted(m_observer, middle, top);
        }
        if (!sampleAt(middle.seconds + std::clamp(top, -3.0 * offsetS, 3.0 * offsetS), middle)) {
            return guess;
        }
    }
    return middle;
}

HorizonSample HorizonScan::greatestElevation(const HorizonSample& from, const HorizonSample& to) {
    HorizonSample best = from.sine > to.sine ? from : to;
    HorizonSample a = from;
    while (a.seconds < to.seconds) {
        // Half strides: the elevation may turn a little sooner than the height above the plane.
        const double end = a.seconds + 0.5 * m_mover.strideFrom(a.state).seconds;
        HorizonSample b = to;
        if (end < to.seconds && !sampleAt(end, b)) {
            break;
        }
        const bool turns = a.sineRatePerS > 0.0 && b.sineRatePerS < 0.0;
        const HorizonSample candidate = turns ? culmination(a, b) : b;
        if (candidate.sine > best.sine) {
            best = candidate;
        }
        a = b;
    }
    return best;
}

}  // namespace vantrace
