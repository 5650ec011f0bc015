#pragma once

namespace vantrace {

/// Eccentricity functions G_lpq of the half-day resonance, as polynomials fitted by Hujsak (Spacetrack Report
/// No. 3).
struct EccentricityFunctions {
    double g201, g211, g310, g322, g410, g422, g520, g533, g521, g532;
};
EccentricityFunctions eccentricityFunctions(double eccentricity);

/// Inclination functions F_lmp of the half-day resonance (Kaula 1966).
struct InclinationFunctions {
    double f220, f221, f321, f322, f441, f442, f522, f523, f542, f543;
};
InclinationFunctions inclinationFunctions(double sinInclination, double cosInclination);

}  // namespace vantrace
