#include "orbit/sgp4/brouwer_orbit.h"

#include <cmath>

#include "orbit/sgp4/gravity.h"

namespace vantrace {

namespace {

void recoverMeanMotion(BrouwerOrbit& orbit, double kozaiMeanMotion) {
    const double theta2 = orbit.cosInclination * orbit.cosInclination;
    const double a1 = std::pow(wgs72::ke / kozaiMeanMotion, 2.0 / 3.0);
    const double d1 = 0.75 * wgs72::j2 * (3.0 * theta2 - 1.0) / (orbit.beta * orbit.beta2);
    const double delta1 = d1 / (a1 * a1);
    const double a0 = a1 * (1.0 - delta1 * delta1 - delta1 * (1.0 / 3.0 + 134.0 * delta1 * delta1 / 81.0));
    const double delta0 = d1 / (a0 * a0);
    orbit.meanMotion = kozaiMeanMotion / (1.0 + delta0);
    orbit.semiMajorAxis = std::pow(wgs72::ke / orbit.meanMotion, 2.0 / 3.0);
}

void setSecularRates(BrouwerOrbit& orbit) {
    const double theta = orbit.cosInclination;
    const double theta2 = theta * theta;
    const double theta4 = theta2 * theta2;
    const double p = orbit.semiMajorAxis * orbit.beta2;
    const double pInverse2 = 1.0 / (p * p);
    const double firstOrder = 1.5 * wgs72::j2 * pInverse2 * orbit.meanMotion;
    const double secondOrder = 0.5 * firstOrder * wgs72::j2 * pInverse2;
    const double j4Order = -0.46875 * wgs72::j4 * pInverse2 * pInverse2 * orbit.meanMotion;

    orbit.meanAnomalyRate = orbit.meanMotion + 0.5 * firstOrder * orbit.beta * (3.0 * theta2 - 1.0) +
                            0.0625 * secondOrder * orbit.beta * (13.0 - 78.0 * theta2 + 137.0 * theta4);
    orbit.perigeeRate = -0.5 * firstOrder * (1.0 - 5.0 * theta2) +
                        0.0625 * secondOrder * (7.0 - 114.0 * theta2 + 395.0 * theta4) +
                        j4Order * (3.0 - 36.0 * theta2 + 49.0 * theta4);
    orbit.nodeRateFirstOrder = -firstOrder * theta;
    orbit.nodeRate =
        orbit.nodeRateFirstOrder +
        (0.5 * secondOrder * (4.0 - 19.0 * theta2) + 2.0 * j4Order * (3.0 - 7.0 * theta2)) * theta;
}

}  // namespace

BrouwerOrbit brouwerOrbit(const ElementSet& elements) {
    BrouwerOrbit orbit;
    orbit.eccentricity = elements.eccentricity;
    orbit.inclination = elements.inclinationRad;
    orbit.argumentOfPerigee = elements.argumentOfPerigeeRad;
    orbit.node = elements.rightAscensionRad;
    orbit.meanAnomaly = elements.meanAnomalyRad;
    orbit.bStar = elements.bStar;
    orbit.sinInclination = std::sin(orbit.inclination);
    orbit.cosInclination = std::cos(orbit.inclination);
    orbit.beta2 = 1.0 - orbit.eccentricity * orbit.eccentricity;
    orbit.beta = std::sqrt(orbit.beta2);
    recoverMeanMotion(orbit, elements.meanMotionRadPerMin);
    orbit.perigeeRadius = orbit.semiMajorAxis * (1.0 - orbit.eccentricity);
    setSecularRates(orbit);
    return orbit;
}

}  // namespace vantrace
