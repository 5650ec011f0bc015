#include "orbit/passes/horizon_scan.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "orbit/earth/earth_rotation.h"
#include "orbit/passes/cubic.h"

namespace vantrace {

namespace {

/// Roots and turning points are taken when the next step to them is shorter than this.
constexpr double closeEnoughS = 1.0e-3;
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

}  // namespace

HorizonScan::HorizonScan(Mover& mover, const Observer& observer, double fromSeconds, int direction)
    : m_mover(mover),
      m_observer(observer),
      m_direction(direction),
      m_siderealAtStart(sinCos(mover.siderealTimeAtStart())) {
    m_failed = !sample(fromSeconds, m_last);
    m_failureSeconds = fromSeconds;
    m_upAtStart = !m_failed && m_last.upKm >= 0.0;
}

bool HorizonScan::sample(double seconds, HorizonSample& result) {
    StateVector state;
    if (!m_mover.stateAt(seconds, state)) {
        return false;
    }
    const SinCos greenwich = addAngles(m_siderealAtStart, sinCos(earthRotationRadPerS * seconds));
    const SinCos sidereal = m_observer.localSiderealTime(greenwich);
    const Vector3 up{m_observer.cosLatitude() * sidereal.cos, m_observer.cosLatitude() * sidereal.sin,
                     m_observer.sinLatitude()};
    const Vector3 upRate{-earthRotationRadPerS * up.y, earthRotationRadPerS * up.x, 0.0};
    const Vector3 site{m_observer.axisDistanceKm() * sidereal.cos, m_observer.axisDistanceKm() * sidereal.sin,
                       m_observer.equatorDistanceKm()};
    const Vector3 siteRate{-earthRotationRadPerS * site.y, earthRotationRadPerS * site.x, 0.0};
    const Vector3 line = state.positionKm - site;
    const double range2 = std::max(dot(line, line), 1.0e-12);
    const double rangeInverse = 1.0 / std::sqrt(range2);
    result.seconds = seconds;
    result.upKm = dot(line, up);
    result.upRateKmS = dot(state.velocityKmS, up) + dot(state.positionKm, upRate);
    result.sine = result.upKm * rangeInverse;
    const double rangeRate = dot(line, state.velocityKmS - siteRate) * rangeInverse;
    result.sineRatePerS = (result.upRateKmS - result.sine * rangeRate) * rangeInverse;
    result.stride = m_mover.strideFrom(state);
    return true;
}

Whereabouts HorizonScan::lookAt(double seconds) {
    StateVector state;
    m_mover.stateAt(seconds, state);
    return whereabouts(m_observer, state, addAngles(m_siderealAtStart, sinCos(earthRotationRadPerS * seconds)));
}

std::optional<HorizonEvent> HorizonScan::next(double limitSeconds) {
    while (!m_pending[0]) {
        if (m_failed || (limitSeconds - m_last.seconds) * m_direction <= 0.0) {
            return std::nullopt;
        }
        HorizonSample next;
        if (!stride(limitSeconds, next)) {
            return std::nullopt;
        }
        findCrossings(m_last, next);
        m_last = next;
    }
    const std::optional<HorizonEvent> event = m_pending[0];
    m_pending[0] = std::exchange(m_pending[1], std::nullopt);
    return event;
}

bool HorizonScan::stride(double limitSeconds, HorizonSample& next) {
    double length = std::min(m_last.stride.seconds, std::abs(limitSeconds - m_last.seconds));
    constexpr double shortestS = 0.5;
    while (!sample(m_last.seconds + m_direction * length, next)) {
        // The path ends within this stride: feel for its end by halves, so that no pass before it is lost.
        if (length <= shortestS) {
            m_failed = true;
            m_failureSeconds = m_last.seconds;
            return false;
        }
        length *= 0.5;
    }
    return true;
}

void HorizonScan::findCrossings(const HorizonSample& a, const HorizonSample& b) {
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
    if (towardsHorizon && findTurningPoint(a, b, beyond)) {
        m_pending[0] = crossingBetween(a, beyond);
        m_pending[1] = crossingBetween(beyond, b);
    }
}

/// Looks for a moment on the other side of the horizon around the turning point between two samples.
bool HorizonScan::findTurningPoint(const HorizonSample& a, const HorizonSample& b, HorizonSample& beyond) {
    const double side = a.upKm >= 0.0 ? -1.0 : 1.0;
    if (a.stride.smooth) {
        // The cubic's own turning point, with room for a tenth of what the tangents would allow: several times its
        // error on a nearly circular orbit.
        const HermiteCubic cubic = heightCubic(a, b);
        const double length = b.seconds - a.seconds;
        const double meeting = (b.upKm - a.upKm - b.upRateKmS * length) / (a.upRateKmS - b.upRateKmS);
        const double tangentHeight = side * (a.upKm + a.upRateKmS * meeting);
        const double cubicHeight = side * cubic.at(cubic.turningPoint());
        if (cubicHeight + 0.1 * (tangentHeight - cubicHeight) < 0.0) {
            return false;
        }
    }
    HorizonSample low = a;
    HorizonSample high = b;
    double last = a.seconds;
    for (int i = 0; i < mostRefinements; ++i) {
        const double guess = inside(low, high, heightCubic(low, high).turningPoint());
        if (!sample(guess, beyond)) {
            return false;
        }
        if (side * beyond.upKm >= 0.0) {
            return true;
        }
        const bool before = side * m_direction * beyond.upRateKmS > 0.0;
        const double room = std::abs((before ? high : low).seconds - beyond.seconds);
        if (side * beyond.upKm + std::abs(beyond.upRateKmS) * room < 0.0 ||
            std::abs(guess - last) < closeEnoughS) {
            return false;
        }
        (before ? low : high) = beyond;
        last = guess;
    }
    return false;
}

HorizonEvent HorizonScan::crossingBetween(HorizonSample a, HorizonSample b) {
    const bool upAtA = a.upKm >= 0.0;
    const Crossing kind = upAtA == (m_direction > 0) ? Crossing::set : Crossing::rise;
    for (int i = 0; i < mostRefinements && std::abs(b.seconds - a.seconds) > closeEnoughS; ++i) {
        HorizonSample middle;
        if (!sample(inside(a, b, heightCubic(a, b).root()), middle)) {
            break;
        }
        if (std::abs(middle.upKm) < closeEnoughS * std::abs(middle.upRateKmS)) {
            return {kind, middle.seconds - middle.upKm / middle.upRateKmS};
        }
        ((middle.upKm >= 0.0) == upAtA ? a : b) = middle;
    }
    return {kind, 0.5 * (a.seconds + b.seconds)};
}

HorizonSample HorizonScan::sineTurningPoint(HorizonSample a, HorizonSample b) {
    HorizonSample best = a.sine > b.sine ? a : b;
    for (int i = 0; i < mostRefinements && b.seconds - a.seconds > closeEnoughS; ++i) {
        HorizonSample middle;
        if (!sample(inside(a, b, sineCubic(a, b).turningPoint()), middle)) {
            break;
        }
        const double moved = std::abs(middle.seconds - best.seconds);
        best = middle.sine > best.sine ? middle : best;
        if (moved < closeEnoughS) {
            break;
        }
        (middle.sineRatePerS > 0.0 ? a : b) = middle;
    }
    return best;
}

HorizonSample HorizonScan::greatestElevation(double fromSeconds, double toSeconds) {
    HorizonSample a;
    HorizonSample best;
    if (!sample(fromSeconds, a)) {
        return best;
    }
    best = a;
    while (a.seconds < toSeconds) {
        // Half strides: the elevation may turn a little sooner than the height above the plane.
        HorizonSample b;
        const double end = std::min(toSeconds, a.seconds + 0.5 * a.stride.seconds);
        if (!sample(end, b)) {
            break;
        }
        const bool turns = a.sineRatePerS > 0.0 && b.sineRatePerS < 0.0;
        const HorizonSample candidate = turns ? sineTurningPoint(a, b) : b;
        if (candidate.sine > best.sine) {
            best = candidate;
        }
        a = b;
    }
    return best;
}

}  // namespace vantrace
