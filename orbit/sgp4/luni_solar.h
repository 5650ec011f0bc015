#pragma once

#include "orbit/sgp4/brouwer_orbit.h"

namespace vantrace {

/// The pull of one third body (sun or moon) on the orbit: coefficients of its periodic terms.
struct BodyPeriodics {
    double e2 = 0.0, e3 = 0.0;               ///< eccentricity
    double i2 = 0.0, i3 = 0.0;               ///< inclination
    double l2 = 0.0, l3 = 0.0, l4 = 0.0;     ///< mean longitude
    double gh2 = 0.0, gh3 = 0.0, gh4 = 0.0;  ///< perigee with the node's part
    double h2 = 0.0, h3 = 0.0;               ///< node
    double meanAnomalyAtEpoch = 0.0;         ///< of the body
    double meanMotion = 0.0;                 ///< of the body, rad/min
    double eccentricity = 0.0;               ///< of the body's orbit
};

/// Secular rates by both bodies together, per minute.
struct SecularRates {
    double eccentricity = 0.0;
    double inclination = 0.0;
    double meanAnomaly = 0.0;
    double perigee = 0.0;
    double node = 0.0;
};

/// Deep-space perturbations by sun and moon (Hujsak 1979; Spacetrack Report No. 3, section 9).
struct LuniSolarTerms {
    BodyPeriodics sun;
    BodyPeriodics moon;
    SecularRates rates;
};

/// `epochJulianDate` is UTC.
LuniSolarTerms luniSolarTerms(const BrouwerOrbit& orbit, double epochJulianDate);

/// The elements that the periodic terms touch.
struct PeriodicElements {
    double eccentricity;
    double inclination;
    double node;
    double argumentOfPerigee;
    double meanAnomaly;
};

/// Adds the periodic terms at a time; below 0.2 rad of inclination in Lyddane's form.
void addPeriodics(const LuniSolarTerms& terms, double minutes, PeriodicElements& elements);

}  // namespace vantrace
