#pragma once

#include <cstdint>
#include <numbers>
#include <string>

#include "orbit/instant.h"

namespace vantrace {

/// One set of SGP4 mean elements, in the engine's units. Frame: TEME of the epoch.
struct ElementSet {
    std::string name;                   ///< trimmed; the catalogue number's text where there is no name line
    std::int32_t catalogNumber = 0;     ///< 0 to 339999 (five columns with Alpha-5)
    Instant epoch;                      ///< UTC
    double bStar = 0.0;                 ///< drag term, per earth radius
    double inclinationRad = 0.0;        ///< 0 to pi
    double rightAscensionRad = 0.0;     ///< of the ascending node, 0 to 2 pi
    double eccentricity = 0.0;          ///< 0 up to 1
    double argumentOfPerigeeRad = 0.0;  ///< 0 to 2 pi
    double meanAnomalyRad = 0.0;        ///< 0 to 2 pi
    double meanMotionRadPerMin = 0.0;   ///< Kozai's, as published
    std::int32_t revolutionNumber = 0;  ///< at epoch
};

inline constexpr double pi = std::numbers::pi;
inline constexpr double twoPi = 2.0 * std::numbers::pi;
inline constexpr double radiansPerDegree = std::numbers::pi / 180.0;

}  // namespace vantrace
