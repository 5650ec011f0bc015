#include "tests/orbit/passes/dense_path.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace vantrace {

namespace {

constexpr double stepS = 10.0;

struct SiteFrame {
    Vector3 position;
    Vector3 up;
};

/// The normal of the WGS-84 ellipsoid and the place above it.
SiteFrame frameOf(const GeodeticPoint& site) {
    const double a = 6378.137;
    const double f = 1.0 / 298.257223563;
    const Vector3 up{std::cos(site.latitudeRad) * std::cos(site.longitudeRad),
                     std::cos(site.latitudeRad) * std::sin(site.longitudeRad), std::sin(site.latitudeRad)};
    // The point of the ellipsoid whose normal is `up`: (a^2 ux, a^2 uy, b^2 uz) / sqrt(a^2 ux^2 + ...).
    const double b = a * (1.0 - f);
    const double length = std::sqrt(a * a * (up.x * up.x + up.y * up.y) + b * b * up.z * up.z);
    return {Vector3{a * a * up.x / length, a * a * up.y / length, b * b * up.z / length} + site.heightKm * up,
            up};
}

double sineFrom(const SiteFrame& site, const Vector3& position) {
    const Vector3 line = position - site.position;
    return dot(line, site.up) / norm(line);
}

/// Greenwich mean sidereal time in the form of Meeus, "Astronomical Algorithms" (1998), formula 12.4.
double siderealTime(const Instant& time) {
    const double days = (time.day - 2451545.0) + time.fraction;
    const double t = days / 36525.0;
    const double degrees = 280.46061837 + 0.98564736629 * days + 360.0 * time.fraction + 180.0 +
                           t * t * (0.000387933 - t / 38710000.0);
    return std::fmod(degrees, 360.0) * radiansPerDegree;
}

}  // namespace

DensePath::DensePath(const ElementSet& elements, const Instant& start, double days)
    : m_propagator(elements),
      m_start(start),
      m_startMinutes(minutesBetween(elements.epoch, start)),
      m_spanS(days * secondsPerDay) {
    for (double seconds = 0.0; seconds <= m_spanS; seconds += stepS) {
        m_positions.push_back(fixedPositionAt(seconds));
    }
}

Vector3 DensePath::fixedPositionAt(double seconds) {
    Propagated result;
    if (m_propagator.propagate(m_startMinutes + seconds / 60.0, result) != PropagationStatus::ok) {
        throw std::runtime_error("no position in the span");
    }
    const double angle = siderealTime(plusSeconds(m_start, seconds));
    const Vector3& r = result.state.positionKm;
    return {r.x * std::cos(angle) + r.y * std::sin(angle), r.y * std::cos(angle) - r.x * std::sin(angle),
            r.z};
}

double DensePath::sineAt(const GeodeticPoint& site, double seconds) {
    return sineFrom(frameOf(site), fixedPositionAt(seconds));
}

/// The moment of the greatest (side 1) or least (side -1) elevation in an interval with one of them; by
/// ternary search.
double DensePath::extremeBetween(const GeodeticPoint& site, double fromS, double toS, double side) {
    while (toS - fromS > 1.0e-3) {
        const double first = fromS + (toS - fromS) / 3.0;
        const double second = toS - (toS - fromS) / 3.0;
        (side * sineAt(site, first) < side * sineAt(site, second) ? fromS : toS) =
            side * sineAt(site, first) < side * sineAt(site, second) ? first : second;
    }
    return 0.5 * (fromS + toS);
}

DenseCrossing DensePath::crossingBetween(const GeodeticPoint& site, double fromS, double toS) {
    const bool upAtStart = sineAt(site, fromS) >= 0.0;
    while (toS - fromS > 1.0e-5) {
        const double middle = 0.5 * (fromS + toS);
        ((sineAt(site, middle) >= 0.0) == upAtStart ? fromS : toS) = middle;
    }
    const double rate = (sineAt(site, fromS + 0.1) - sineAt(site, fromS - 0.1)) / 0.2;
    return {0.5 * (fromS + toS), !upAtStart, rate};
}

std::vector<DenseCrossing> DensePath::crossings(const GeodeticPoint& site) {
    const SiteFrame frame = frameOf(site);
    std::vector<double> sines;
    for (const Vector3& position : m_positions) sines.push_back(sineFrom(frame, position));
    std::vector<DenseCrossing> result;
    for (std::size_t i = 1; i < sines.size(); ++i) {
        const double here = static_cast<double>(i) * stepS;
        if ((sines[i - 1] >= 0.0) != (sines[i] >= 0.0)) {
            result.push_back(crossingBetween(site, here - stepS, here));
        }
        if (i + 1 == sines.size()) break;
        const double side = sines[i] >= 0.0 ? -1.0 : 1.0;
        const bool turns = side * sines[i] >= side * sines[i - 1] && side * sines[i] > side * sines[i + 1];
        const bool oneSide =
            (sines[i + 1] >= 0.0) == (sines[i] >= 0.0) && (sines[i - 1] >= 0.0) == (sines[i] >= 0.0);
        if (!turns || !oneSide) continue;
        const double turn = extremeBetween(site, here - stepS, here + stepS, side);
        if (side * sineAt(site, turn) > 0.0) {
            result.push_back(crossingBetween(site, here - stepS, turn));
            result.push_back(crossingBetween(site, turn, here + stepS));
        }
    }
    return result;
}

double DensePath::greatestSine(const GeodeticPoint& site, double fromS, double toS) {
    const SiteFrame frame = frameOf(site);
    double best = std::max(sineAt(site, fromS), sineAt(site, toS));
    double bestAt = sineAt(site, fromS) == best ? fromS : toS;
    for (double seconds = std::ceil(fromS / stepS) * stepS; seconds < toS; seconds += stepS) {
        const double sine =
            sineFrom(frame, m_positions[static_cast<std::size_t>(std::lround(seconds / stepS))]);
        if (sine > best) {
            best = sine;
            bestAt = seconds;
        }
    }
    return sineAt(site,
                  extremeBetween(site, std::max(fromS, bestAt - stepS), std::min(toS, bestAt + stepS), 1.0));
}

}  // namespace vantrace
