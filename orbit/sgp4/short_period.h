// From mean elements to position and velocity: long-period terms by J3, Kepler's equation, short-period terms
// by J2 (Hoots, Schumacher and Glover 2004, section on the update for long- and short-period effects).
#pragma once

#include <algorithm>
#include <cmath>

#include "orbit/sgp4/gravity.h"
#include "orbit/sgp4/mean_state.h"
#include "orbit/sgp4/propagation_status.h"
#include "orbit/sin_cos.h"
#include "orbit/state_vector.h"

namespace vantrace {

/// What the periodic terms need of the inclination; fixed for a near-earth orbit, fresh at each time for a
/// deep one.
struct InclinationTerms {
    double sin = 0.0;
    double cos = 0.0;
    double threeTheta2Minus1 = 0.0;
    double oneMinusTheta2 = 0.0;
    double sevenTheta2Minus1 = 0.0;
    double longitude = 0.0;     ///< long-period coefficient of the mean longitude
    double eccentricity = 0.0;  ///< long-period coefficient of e sin(perigee)

    static InclinationTerms of(double sin, double cos) {
        const double theta2 = cos * cos;
        // At 180 degrees 1 + cos i vanishes; the published bound keeps the quotient finite.
        constexpr double smallestDivisor = 1.5e-12;
        const double divisor = std::abs(cos + 1.0) > smallestDivisor ? 1.0 + cos : smallestDivisor;
        InclinationTerms terms;
        terms.sin = sin;
        terms.cos = cos;
        terms.threeTheta2Minus1 = 3.0 * theta2 - 1.0;
        terms.oneMinusTheta2 = 1.0 - theta2;
        terms.sevenTheta2Minus1 = 7.0 * theta2 - 1.0;
        terms.longitude = -0.25 * (wgs72::j3 / wgs72::j2) * sin * (3.0 + 5.0 * cos) / divisor;
        terms.eccentricity = -0.5 * (wgs72::j3 / wgs72::j2) * sin;
        return terms;
    }
};

/// Kepler's equation for E + omega in the components of the eccentricity vector, u = E - ax sin E + ay cos E,
/// by Danby's quartic form of Newton's method (Danby, "Fundamentals of Celestial Mechanics", 1988,
/// section 6.6) with a limit of 0.95 a step. Sine and cosine follow the steps by the addition theorem, which
/// for small steps costs a fraction of a fresh evaluation.
inline SinCos solveKepler(double u, double ax, double ay) {
    constexpr int mostSteps = 12;
    // What a step leaves is some 1/24 of its fourth power times the eccentricity: some 1e-14.
    constexpr double smallRest = 2.4e-13;
    const double eccentricity = std::abs(ax) + std::abs(ay);
    double angle = u;
    SinCos e = sinCos(u);
    for (int i = 0; i < mostSteps; ++i) {
        const double eSinE = ax * e.sin - ay * e.cos;
        const double eCosE = ax * e.cos + ay * e.sin;
        const double slope = 1.0 - eCosE;
        const double miss = u - angle + eSinE;
        double step = miss / slope;
        step = miss / (slope + 0.5 * step * eSinE);
        step = miss / (slope + step * (0.5 * eSinE + step * eCosE * (1.0 / 6.0)));
        step = std::clamp(step, -0.95, 0.95);
        angle += step;
        e = addAngles(e, sinCosSmall(step));
        const double step2 = step * step;
        if (eccentricity * step2 * step2 < smallRest) {
            break;
        }
    }
    return e;
}

/// Osculating orbit in its plane: radius, rates, and the argument of latitude as sine and cosine.
struct OrbitPlaneState {
    double radius;
    double radialVelocity;
    double transverseVelocity;
    SinCos latitudeArgument;
    double nodeCorrection;
    double inclinationCorrection;
};

/// Adds the short-period terms of J2 to the Kepler solution.
inline OrbitPlaneState shortPeriod(const MeanState& mean, const InclinationTerms& terms, double ax, double ay,
                                   double semiLatusRectum, const SinCos& e) {
    const double eCosE = ax * e.cos + ay * e.sin;
    const double eSinE = ax * e.sin - ay * e.cos;
    const double radius = mean.semiMajorAxis * (1.0 - eCosE);
    const double beta = std::sqrt(1.0 - (ax * ax + ay * ay));
    const double shift = eSinE / (1.0 + beta);
    const double axisOverRadius = mean.semiMajorAxis / radius;
    const double sinU = axisOverRadius * (e.sin - ay - ax * shift);
    const double cosU = axisOverRadius * (e.cos - ax + ay * shift);
    const double sin2U = 2.0 * cosU * sinU;
    const double cos2U = 1.0 - 2.0 * sinU * sinU;

    const double pInverse = 1.0 / semiLatusRectum;
    const double first = 0.5 * wgs72::j2 * pInverse;
    const double second = first * pInverse;
    const double rateScale = mean.meanMotion * first * (1.0 / wgs72::ke);

    OrbitPlaneState state{};
    state.radius = radius * (1.0 - 1.5 * second * beta * terms.threeTheta2Minus1) +
                   0.5 * first * terms.oneMinusTheta2 * cos2U;
    state.radialVelocity =
        std::sqrt(mean.semiMajorAxis) * eSinE / radius - rateScale * terms.oneMinusTheta2 * sin2U;
    state.transverseVelocity = std::sqrt(semiLatusRectum) / radius +
                               rateScale * (terms.oneMinusTheta2 * cos2U + 1.5 * terms.threeTheta2Minus1);
    state.latitudeArgument =
        addAngles({sinU, cosU}, sinCosSmall(-0.25 * second * terms.sevenTheta2Minus1 * sin2U));
    state.nodeCorrection = 1.5 * second * terms.cos * sin2U;
    state.inclinationCorrection = 1.5 * second * terms.cos * terms.sin * cos2U;
    return state;
}

/// Turns the orbit plane into space: TEME, km and km/s.
inline StateVector orientedState(const OrbitPlaneState& plane, const SinCos& node,
                                 const SinCos& inclination) {
    const SinCos& u = plane.latitudeArgument;
    const double mx = -node.sin * inclination.cos;
    const double my = node.cos * inclination.cos;
    const Vector3 radial{mx * u.sin + node.cos * u.cos, my * u.sin + node.sin * u.cos,
                         inclination.sin * u.sin};
    const Vector3 transverse{mx * u.cos - node.cos * u.sin, my * u.cos - node.sin * u.sin,
                             inclination.sin * u.cos};
    StateVector state;
    state.positionKm = (plane.radius * wgs72::earthRadiusKm) * radial;
    state.velocityKmS =
        wgs72::velocityUnitKmS * (plane.radialVelocity * radial + plane.transverseVelocity * transverse);
    return state;
}

/// Position and velocity of mean elements. The state is written only on `ok`, and on
/// `decayed`, whose position lies inside the earth.
inline PropagationStatus stateFromMean(const MeanState& mean, const InclinationTerms& terms,
                                       const SinCos& perigee, const SinCos& node, StateVector& state) {
    const double e2 = mean.eccentricity * mean.eccentricity;
    const double pInverse = 1.0 / (mean.semiMajorAxis * (1.0 - e2));
    const double ax = mean.eccentricity * perigee.cos;
    const double ay = mean.eccentricity * perigee.sin + pInverse * terms.eccentricity;
    const double u = mean.meanAnomaly + mean.argumentOfPerigee + pInverse * terms.longitude * ax;
    const double semiLatusRectum = mean.semiMajorAxis * (1.0 - (ax * ax + ay * ay));
    if (!(semiLatusRectum >= 0.0)) {
        return PropagationStatus::semiLatusRectumNegative;
    }
    const OrbitPlaneState plane = shortPeriod(mean, terms, ax, ay, semiLatusRectum, solveKepler(u, ax, ay));
    state = orientedState(plane, addAngles(node, sinCosSmall(plane.nodeCorrection)),
                          addAngles({terms.sin, terms.cos}, sinCosSmall(plane.inclinationCorrection)));
    return plane.radius < 1.0 ? PropagationStatus::decayed : PropagationStatus::ok;
}

}  // namespace vantrace
