#pragma once

namespace vantrace::wgs72 {

// World Geodetic System 1972, the constants that element sets are made with (Hoots and Roehrich, Spacetrack
// Report No. 3, 1980; Vallado et al., "Revisiting Spacetrack Report #3", AIAA 2006-6753, table 1).
inline constexpr double gravitationKm3S2 = 398600.8;
inline constexpr double earthRadiusKm = 6378.135;
inline constexpr double j2 = 0.001082616;
inline constexpr double j3 = -0.00000253881;
inline constexpr double j4 = -0.00000165597;

/// Square root of the gravitational constant in earth radii^1.5 per minute: 60 / sqrt(radius^3 /
/// gravitation).
inline constexpr double ke = 0.07436691613317342;
/// km/s in one earth radius of canonical velocity.
inline constexpr double velocityUnitKmS = earthRadiusKm * ke / 60.0;

}  // namespace vantrace::wgs72
