// A satellite's path in steps of a few seconds: what a pass search is measured against. Positions alone are
// used, with formulas of the test's own.
#pragma once

#include "orbit/earth/geodesy.h"
#include "orbit/sgp4/propagator.h"
#include "tests/support/testing.h"

namespace vantrace {

struct DenseCrossing {
    double seconds = 0.0;  ///< from the start
    bool rise = false;
    double ratePerS = 0.0;  ///< of the elevation's sine there
};

class DensePath {
  public:
    DensePath(const ElementSet& elements, const Instant& start, double days)
        : m_propagator(elements),
          m_start(start),
          m_startMinutes(minutesBetween(elements.epoch, start)),
          m_spanS(days * secondsPerDay) {
        for (double seconds = 0.0; seconds <= m_spanS; seconds += stepS) {
            m_positions.push_back(fixedPositionAt(seconds));
        }
    }

    double spanS() const { return m_spanS; }
    /// Every crossing of the horizon within the span, however close together two of them lie.
    std::vector<DenseCrossing> crossings(const GeodeticPoint& place) {
        const SiteFrame site(place);
        std::vector<double> sines;
        for (const Vector3& position : m_positions) sines.push_back(site.sineOf(position));
        std::vector<DenseCrossing> result;
        for (std::size_t i = 1; i < sines.size(); ++i) {
            const double here = static_cast<double>(i) * stepS;
            if ((sines[i - 1] >= 0.0) != (sines[i] >= 0.0)) {
                result.push_back(crossingBetween(site, here - stepS, here));
            }
            if (i + 1 == sines.size()) break;
            const double side = sines[i] >= 0.0 ? -1.0 : 1.0;
            const bool turns =
                side * sines[i] >= side * sines[i - 1] && side * sines[i] > side * sines[i + 1];
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
    /// Greatest sine of the elevation between two moments.
    double greatestSine(const GeodeticPoint& place, double fromS, double toS) {
        const SiteFrame site(place);
        double best = std::max(sineAt(site, fromS), sineAt(site, toS));
        double bestAt = sineAt(site, fromS) == best ? fromS : toS;
        for (double seconds = std::ceil(fromS / stepS) * stepS; seconds < toS; seconds += stepS) {
            const double sine =
                site.sineOf(m_positions[static_cast<std::size_t>(std::lround(seconds / stepS))]);
            if (sine > best) {
                best = sine;
                bestAt = seconds;
            }
        }
        return sineAt(
            site, extremeBetween(site, std::max(fromS, bestAt - stepS), std::min(toS, bestAt + stepS), 1.0));
    }

  private:
    static constexpr double stepS = 10.0;

    struct SiteFrame {
        /// The normal of the WGS-84 ellipsoid, and the place above it: the point of the ellipsoid whose
        /// normal is `up` is (a^2 ux, a^2 uy, b^2 uz) / sqrt(a^2 ux^2 + ...).
        explicit SiteFrame(const GeodeticPoint& site)
            : up{std::cos(site.latitudeRad) * std::cos(site.longitudeRad),
                 std::cos(site.latitudeRad) * std::sin(site.longitudeRad), std::sin(site.latitudeRad)} {
            constexpr double a = 6378.137;
            constexpr double b = a * (1.0 - 1.0 / 298.257223563);
            const double length = std::sqrt(a * a * (up.x * up.x + up.y * up.y) + b * b * up.z * up.z);
            position = Vector3{a * a * up.x / length, a * a * up.y / length, b * b * up.z / length} +
                       site.heightKm * up;
        }
        double sineOf(const Vector3& object) const {
            const Vector3 line = object - position;
            return dot(line, up) / norm(line);
        }

        Vector3 up;
        Vector3 position;
    };

    Vector3 fixedPositionAt(double seconds) {
        Propagated result;
        if (m_propagator.propagate(m_startMinutes + seconds / 60.0, result) != PropagationStatus::ok) {
            throw std::runtime_error("no position in the span");
        }
        // Greenwich mean sidereal time as Meeus, "Astronomical Algorithms" (1998), formula 12.4 has it.
        const Instant time = plusSeconds(m_start, seconds);
        const double days = (time.day - 2451545.0) + time.fraction;
        const double t = days / 36525.0;
        const double degrees = 280.46061837 + 0.98564736629 * days + 360.0 * time.fraction + 180.0 +
                               t * t * (0.000387933 - t / 38710000.0);
        const double angle = std::fmod(degrees, 360.0) * radiansPerDegree;
        const Vector3& r = result.state.positionKm;
        return {r.x * std::cos(angle) + r.y * std::sin(angle), r.y * std::cos(angle) - r.x * std::sin(angle),
                r.z};
    }
    double sineAt(const SiteFrame& site, double seconds) { return site.sineOf(fixedPositionAt(seconds)); }
    /// The moment of the greatest (side 1) or least (side -1) elevation in an interval with one of them; by
    /// ternary search.
    double extremeBetween(const SiteFrame& site, double fromS, double toS, double side) {
        while (toS - fromS > 1.0e-3) {
            const double first = fromS + (toS - fromS) / 3.0;
            const double second = toS - (toS - fromS) / 3.0;
            const bool grows = side * sineAt(site, first) < side * sineAt(site, second);
            (grows ? fromS : toS) = grows ? first : second;
        }
        return 0.5 * (fromS + toS);
    }
    DenseCrossing crossingBetween(const SiteFrame& site, double fromS, double toS) {
        const bool upAtStart = sineAt(site, fromS) >= 0.0;
        while (toS - fromS > 1.0e-5) {
            const double middle = 0.5 * (fromS + toS);
            ((sineAt(site, middle) >= 0.0) == upAtStart ? fromS : toS) = middle;
        }
        const double rate = (sineAt(site, fromS + 0.1) - sineAt(site, fromS - 0.1)) / 0.2;
        return {0.5 * (fromS + toS), !upAtStart, rate};
    }

    Propagator m_propagator;
    Instant m_start;
    double m_startMinutes;
    double m_spanS;
    std::vector<Vector3> m_positions;
};

}  // namespace vantrace
