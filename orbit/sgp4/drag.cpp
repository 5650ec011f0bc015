#include "orbit/sgp4/drag.h"

#include <cmath>

#include "orbit/sgp4/gravity.h"

namespace vantrace {

namespace {

/// Below this eccentricity the terms that divide by it are dropped (Spacetrack Report No. 3).
constexpr double smallestEccentricity = 1.0e-4;

/// Fitting height s of the density function and (q0 - s)^4, in earth radii; low perigees lower s.
struct DensityFit {
    double s;
    double q0MinusS4;
};

DensityFit densityFit(double perigeeRadius) {
    const double perigeeHeightKm = (perigeeRadius - 1.0) * wgs72::earthRadiusKm;
    double heightKm = 78.0;
    if (perigeeHeightKm < 98.0) {
        heightKm = 20.0;
    } else if (perigeeHeightKm < 156.0) {
        heightKm = perigeeHeightKm - 78.0;
    }
    const double q0MinusS = (120.0 - heightKm) / wgs72::earthRadiusKm;
    return {heightKm / wgs72::earthRadiusKm + 1.0, q0MinusS * q0MinusS * q0MinusS * q0MinusS};
}

/// The higher powers of time, for orbits that stay clear of the dense atmosphere.
void setHigherPowers(DragTerms& drag, double a, double s, double xi) {
    const double c1Squared = drag.c1 * drag.c1;
    drag.d2 = 4.0 * a * xi * c1Squared;
    const double step = drag.d2 * xi * drag.c1 / 3.0;
    drag.d3 = (17.0 * a + s) * step;
    drag.d4 = 0.5 * step * a * xi * (221.0 * a + 31.0 * s) * drag.c1;
    drag.t3 = drag.d2 + 2.0 * c1Squared;
    drag.t4 = 0.25 * (3.0 * drag.d3 + drag.c1 * (12.0 * drag.d2 + 10.0 * c1Squared));
    drag.t5 = 0.2 * (3.0 * drag.d4 + 12.0 * drag.c1 * drag.d3 + 6.0 * drag.d2 * drag.d2 +
                     15.0 * c1Squared * (2.0 * drag.d2 + c1Squared));
}

}  // namespace

DragTerms dragTerms(const BrouwerOrbit& orbit, bool deepSpace) {
    const double a = orbit.semiMajorAxis;
    const double e = orbit.eccentricity;
    const double theta2 = orbit.cosInclination * orbit.cosInclination;
    const double threeTheta2Minus1 = 3.0 * theta2 - 1.0;
    const DensityFit fit = densityFit(orbit.perigeeRadius);

    DragTerms drag;
    const double xi = 1.0 / (a - fit.s);
    drag.eta = a * e * xi;
    const double eta2 = drag.eta * drag.eta;
    const double eEta = e * drag.eta;
    const double psi2 = std::abs(1.0 - eta2);
    const double density = fit.q0MinusS4 * xi * xi * xi * xi;
    const double densityOverPsi7 = density / std::pow(psi2, 3.5);

    const double c2 = densityOverPsi7 * orbit.meanMotion *
                      (a * (1.0 + 1.5 * eta2 + eEta * (4.0 + eta2)) +
                       0.375 * wgs72::j2 * xi / psi2 * threeTheta2Minus1 * (8.0 + 3.0 * eta2 * (8.0 + eta2)));
    drag.c1 = orbit.bStar * c2;
    const double c3 = e > smallestEccentricity ? -2.0 * density * xi * (wgs72::j3 / wgs72::j2) *
                                                     orbit.meanMotion * orbit.sinInclination / e
                                               : 0.0;
    const double c4Harmonics =
        -3.0 * threeTheta2Minus1 * (1.0 - 2.0 * eEta + eta2 * (1.5 - 0.5 * eEta)) +
        0.75 * (1.0 - theta2) * (2.0 * eta2 - eEta * (1.0 + eta2)) * std::cos(2.0 * orbit.argumentOfPerigee);
    drag.c4 =
        2.0 * orbit.meanMotion * densityOverPsi7 * a * orbit.beta2 *
        (drag.eta * (2.0 + 0.5 * eta2) + e * (0.5 + 2.0 * eta2) - wgs72::j2 * xi / (a * psi2) * c4Harmonics);
    drag.c5 = 2.0 * densityOverPsi7 * a * orbit.beta2 * (1.0 + 2.75 * (eta2 + eEta) + eEta * eta2);

    drag.node2 = 3.5 * orbit.beta2 * orbit.nodeRateFirstOrder * drag.c1;
    drag.perigee = orbit.bStar * c3 * std::cos(orbit.argumentOfPerigee);
    drag.anomaly = e > smallestEccentricity ? -2.0 / 3.0 * density * orbit.bStar / eEta : 0.0;
    drag.anomalyAtEpoch = std::pow(1.0 + drag.eta * std::cos(orbit.meanAnomaly), 3.0);
    drag.sinMeanAnomaly = std::sin(orbit.meanAnomaly);
    drag.t2 = 1.5 * drag.c1;

    constexpr double simpleBelowRadius = 220.0 / wgs72::earthRadiusKm + 1.0;
    drag.simple = deepSpace || orbit.perigeeRadius < simpleBelowRadius;
    if (!drag.simple) {
        setHigherPowers(drag, a, fit.s, xi);
    }
    return drag;
}

}  // namespace vantrace
