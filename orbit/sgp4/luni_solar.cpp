#include "orbit/sgp4/luni_solar.h"

#include <cmath>

#include "orbit/sin_cos.h"

namespace vantrace {

namespace {

constexpr double solarMeanMotion = 1.19459e-5;    // rad/min
constexpr double lunarMeanMotion = 1.5835218e-4;  // rad/min
constexpr double solarEccentricity = 0.01675;
constexpr double lunarEccentricity = 0.05490;
constexpr double solarPerturbation = 2.9864797e-6;  // rad/min
constexpr double lunarPerturbation = 4.7968065e-7;  // rad/min

/// Where a third body's orbit stands: node against the satellite's node, inclination, perigee.
struct BodyOrbit {
    SinCos perigee;
    SinCos inclination;
    SinCos node;
    double perturbation;
};

/// The sums that carry a body's effect; indices as in the published equations.
struct BodySums {
    double s1, s2, s3, s4, s5, s6, s7;
    double z1, z2, z3;
    double z11, z12, z13;
    double z21, z22, z23;
    double z31, z32, z33;
};

BodySums bodySums(const BrouwerOrbit& orbit, const SinCos& perigee, const BodyOrbit& body) {
    const double e2 = orbit.eccentricity * orbit.eccentricity;
    const double cosI = orbit.cosInclination;
    const double sinI = orbit.sinInclination;
    const auto& [g, i, h, perturbation] = body;

    const double a1 = g.cos * h.cos + g.sin * i.cos * h.sin;
    const double a3 = -g.sin * h.cos + g.cos * i.cos * h.sin;
    const double a7 = -g.cos * h.sin + g.sin * i.cos * h.cos;
    const double a8 = g.sin * i.sin;
    const double a9 = g.sin * h.sin + g.cos * i.cos * h.cos;
    const double a10 = g.cos * i.sin;
    const double a2 = cosI * a7 + sinI * a8;
    const double a4 = cosI * a9 + sinI * a10;
    const double a5 = -sinI * a7 + cosI * a8;
    const double a6 = -sinI * a9 + cosI * a10;

    const double x1 = a1 * perigee.cos + a2 * perigee.sin;
    const double x2 = a3 * perigee.cos + a4 * perigee.sin;
    const double x3 = -a1 * perigee.sin + a2 * perigee.cos;
    const double x4 = -a3 * perigee.sin + a4 * perigee.cos;
    const double x5 = a5 * perigee.sin;
    const double x6 = a6 * perigee.sin;
    const double x7 = a5 * perigee.cos;
    const double x8 = a6 * perigee.cos;

    BodySums sums{};
    sums.z31 = 12.0 * x1 * x1 - 3.0 * x3 * x3;
    sums.z32 = 24.0 * x1 * x2 - 6.0 * x3 * x4;
    sums.z33 = 12.0 * x2 * x2 - 3.0 * x4 * x4;
    sums.z1 = 2.0 * (3.0 * (a1 * a1 + a2 * a2) + sums.z31 * e2) + orbit.beta2 * sums.z31;
    sums.z2 = 2.0 * (6.0 * (a1 * a3 + a2 * a4) + sums.z32 * e2) + orbit.beta2 * sums.z32;
    sums.z3 = 2.0 * (3.0 * (a3 * a3 + a4 * a4) + sums.z33 * e2) + orbit.beta2 * sums.z33;
    sums.z11 = -6.0 * a1 * a5 + e2 * (-24.0 * x1 * x7 - 6.0 * x3 * x5);
    sums.z12 = -6.0 * (a1 * a6 + a3 * a5) + e2 * (-24.0 * (x2 * x7 + x1 * x8) - 6.0 * (x3 * x6 + x4 * x5));
    sums.z13 = -6.0 * a3 * a6 + e2 * (-24.0 * x2 * x8 - 6.0 * x4 * x6);
    sums.z21 = 6.0 * a2 * a5 + e2 * (24.0 * x1 * x5 - 6.0 * x3 * x7);
    sums.z22 = 6.0 * (a4 * a5 + a2 * a6) + e2 * (24.0 * (x2 * x5 + x1 * x6) - 6.0 * (x4 * x7 + x3 * x8));
    sums.z23 = 6.0 * a4 * a6 + e2 * (24.0 * x2 * x6 - 6.0 * x4 * x8);

    sums.s3 = perturbation / orbit.meanMotion;
    sums.s2 = -0.5 * sums.s3 / orbit.beta;
    sums.s4 = sums.s3 * orbit.beta;
    sums.s1 = -15.0 * orbit.eccentricity * sums.s4;
    sums.s5 = x1 * x3 + x2 * x4;
    sums.s6 = x2 * x3 + x1 * x4;
    sums.s7 = x2 * x4 - x1 * x3;
    return sums;
}

BodyPeriodics bodyPeriodics(const BodySums& s, double e2, double bodyEccentricity, double bodyMeanMotion,
                            double bodyMeanAnomaly) {
    BodyPeriodics p;
    p.e2 = 2.0 * s.s1 * s.s6;
    p.e3 = 2.0 * s.s1 * s.s7;
    p.i2 = 2.0 * s.s2 * s.z12;
    p.i3 = 2.0 * s.s2 * (s.z13 - s.z11);
    p.l2 = -2.0 * s.s3 * s.z2;
    p.l3 = -2.0 * s.s3 * (s.z3 - s.z1);
    p.l4 = -2.0 * s.s3 * (-21.0 - 9.0 * e2) * bodyEccentricity;
    p.gh2 = 2.0 * s.s4 * s.z32;
    p.gh3 = 2.0 * s.s4 * (s.z33 - s.z31);
    p.gh4 = -18.0 * s.s4 * bodyEccentricity;
    p.h2 = -2.0 * s.s2 * s.z22;
    p.h3 = -2.0 * s.s2 * (s.z23 - s.z21);
    p.meanAnomalyAtEpoch = bodyMeanAnomaly;
    p.meanMotion = bodyMeanMotion;
    p.eccentricity = bodyEccentricity;
    return p;
}

SecularRates bodyRates(const BrouwerOrbit& orbit, const BodySums& s, double bodyMeanMotion) {
    const double e2 = orbit.eccentricity * orbit.eccentricity;
    SecularRates rates;
    rates.eccentricity = bodyMeanMotion * s.s1 * s.s5;
    rates.inclination = bodyMeanMotion * s.s2 * (s.z11 + s.z13);
    rates.meanAnomaly = -bodyMeanMotion * s.s3 * (s.z1 + s.z3 - 14.0 - 6.0 * e2);
    rates.perigee = bodyMeanMotion * s.s4 * (s.z31 + s.z33 - 6.0);
    // Within 3 degrees of the equator the node's rate is dropped: its divisor sin i vanishes there.
    constexpr double equatorialBand = 5.2359877e-2;
    const bool equatorial = orbit.inclination < equatorialBand || orbit.inclination > pi - equatorialBand;
    if (!equatorial) {
        rates.node = -bodyMeanMotion * s.s2 * (s.z21 + s.z23) / orbit.sinInclination;
        rates.perigee -= orbit.cosInclination * rates.node;
    }
    return rates;
}

BodyOrbit solarOrbit(const SinCos& satelliteNode) {
    return {{-0.98088458, 0.1945905}, {0.39785416, 0.91744867}, satelliteNode, solarPerturbation};
}

/// The moon's orbit against the equator at a date (days since 1899-12-31 12:00), from its ecliptic node.
struct LunarOrbit {
    BodyOrbit orbit;
    double longitudeOfPerigee;
};

LunarOrbit lunarOrbit(const SinCos& satelliteNode, double day) {
    const double eclipticNode = std::fmod(4.5236020 - 9.2422029e-4 * day, twoPi);
    const SinCos node{std::sin(eclipticNode), std::cos(eclipticNode)};
    const double cosI = 0.91375164 - 0.03568096 * node.cos;
    const double sinI = std::sqrt(1.0 - cosI * cosI);
    const double sinH = 0.089683511 * node.sin / sinI;
    const double cosH = std::sqrt(1.0 - sinH * sinH);
    const double longitudeOfPerigee = 5.8351514 + 0.0019443680 * day;
    const double arc =
        std::atan2(0.39785416 * node.sin / sinI, cosH * node.cos + 0.91744867 * sinH * node.sin);
    const double perigee = longitudeOfPerigee + arc - eclipticNode;
    const SinCos difference{satelliteNode.sin * cosH - satelliteNode.cos * sinH,
                            cosH * satelliteNode.cos + sinH * satelliteNode.sin};
    return {{{std::sin(perigee), std::cos(perigee)}, {sinI, cosI}, difference, lunarPerturbation},
            longitudeOfPerigee};
}

/// Sum of a body's periodic terms at a time.
struct PeriodicSums {
    double e = 0.0, i = 0.0, l = 0.0, gh = 0.0, h = 0.0;
};

/// True anomalies of sun and moon, by the first term of the equation of the centre.
SinCosPair trueAnomalies(const LuniSolarTerms& terms, double minutes) {
    const double sun = terms.sun.meanAnomalyAtEpoch + terms.sun.meanMotion * minutes;
    const double moon = terms.moon.meanAnomalyAtEpoch + terms.moon.meanMotion * minutes;
    const SinCosPair mean = sinCos(sun, moon);
    return sinCos(sun + 2.0 * terms.sun.eccentricity * mean.first.sin,
                  moon + 2.0 * terms.moon.eccentricity * mean.second.sin);
}

PeriodicSums periodicSums(const BodyPeriodics& body, const SinCos& f) {
    const double f2 = 0.5 * f.sin * f.sin - 0.25;
    const double f3 = -0.5 * f.sin * f.cos;
    return {body.e2 * f2 + body.e3 * f3, body.i2 * f2 + body.i3 * f3,
            body.l2 * f2 + body.l3 * f3 + body.l4 * f.sin, body.gh2 * f2 + body.gh3 * f3 + body.gh4 * f.sin,
            body.h2 * f2 + body.h3 * f3};
}

/// Lyddane's form: the node's vector is moved instead of the node, so that a small inclination divides
/// nothing.
void addLyddane(const PeriodicSums& sums, const SinCos& inclination, const SinCos& node,
                PeriodicElements& elements) {
    const double alpha = inclination.sin * node.sin + sums.h * node.cos + sums.i * inclination.cos * node.sin;
    const double beta = inclination.sin * node.cos - sums.h * node.sin + sums.i * inclination.cos * node.cos;
    const double oldNode = withoutTurns(elements.node);
    const double longitude = elements.meanAnomaly + elements.argumentOfPerigee + inclination.cos * oldNode +
                             sums.l + sums.gh - sums.i * oldNode * inclination.sin;
    double newNode = std::atan2(alpha, beta);
    if (std::abs(oldNode - newNode) > pi) {
        newNode += newNode < oldNode ? twoPi : -twoPi;
    }
    elements.node = newNode;
    elements.meanAnomaly += sums.l;
    elements.argumentOfPerigee = longitude - elements.meanAnomaly - inclination.cos * newNode;
}

}  // namespace

LuniSolarTerms luniSolarTerms(const BrouwerOrbit& orbit, double epochJulianDate) {
    constexpr double julianDateOf1900 = 2415020.0;  // 1899-12-31 12:00
    const double day = epochJulianDate - julianDateOf1900;
    const double e2 = orbit.eccentricity * orbit.eccentricity;
    const SinCos perigee{std::sin(orbit.argumentOfPerigee), std::cos(orbit.argumentOfPerigee)};
    const SinCos node{std::sin(orbit.node), std::cos(orbit.node)};
    const LunarOrbit moonOrbit = lunarOrbit(node, day);
    const BodySums sun = bodySums(orbit, perigee, solarOrbit(node));
    const BodySums moon = bodySums(orbit, perigee, moonOrbit.orbit);

    LuniSolarTerms terms;
    terms.sun = bodyPeriodics(sun, e2, solarEccentricity, solarMeanMotion,
                              std::fmod(6.2565837 + 0.017201977 * day, twoPi));
    terms.moon = bodyPeriodics(moon, e2, lunarEccentricity, lunarMeanMotion,
                               std::fmod(4.7199672 + 0.22997150 * day - moonOrbit.longitudeOfPerigee, twoPi));
    const SecularRates bySun = bodyRates(orbit, sun, solarMeanMotion);
    const SecularRates byMoon = bodyRates(orbit, moon, lunarMeanMotion);
    terms.rates = {bySun.eccentricity + byMoon.eccentricity, bySun.inclination + byMoon.inclination,
                   bySun.meanAnomaly + byMoon.meanAnomaly, bySun.perigee + byMoon.perigee,
                   bySun.node + byMoon.node};
    return terms;
}

void addPeriodics(const LuniSolarTerms& terms, double minutes, PeriodicElements& elements) {
    const SinCosPair anomalies = trueAnomalies(terms, minutes);
    const PeriodicSums bySun = periodicSums(terms.sun, anomalies.first);
    const PeriodicSums byMoon = periodicSums(terms.moon, anomalies.second);
    const PeriodicSums sums{bySun.e + byMoon.e, bySun.i + byMoon.i, bySun.l + byMoon.l, bySun.gh + byMoon.gh,
                            bySun.h + byMoon.h};
    elements.inclination += sums.i;
    elements.eccentricity += sums.e;
    constexpr double lyddaneBelow = 0.2;
    if (elements.inclination < lyddaneBelow) {
        const SinCosPair angles = sinCos(elements.inclination, elements.node);
        addLyddane(sums, angles.first, angles.second, elements);
        return;
    }
    const SinCos inclination = sinCos(elements.inclination);
    const double node = sums.h / inclination.sin;
    elements.argumentOfPerigee += sums.gh - inclination.cos * node;
    elements.node += node;
    elements.meanAnomaly += sums.l;
}

}  // namespace vantrace
