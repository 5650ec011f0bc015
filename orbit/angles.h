// The angle helpers of the program's own arithmetic. They carry one value of pi, fifteen digits long; the
// engine and the sunrise calculator have their own.
#pragma once

namespace vantrace {

inline constexpr double programPi = 3.14159265358979;
inline constexpr double programTwoPi = 6.28318530717958;

/// Radians in 0 up to 2 pi of the direction (x, y); 0 where both are 0.
double ArcTan2(double y, double x);

double DegToRad(double degrees);
double RadToDeg(double radians);

/// Radians in -pi/2 to pi/2. At exactly 1 and -1, and beyond, the quotient has no value: std::domain_error.
double ArcSin(double x);
/// Radians in 0 to pi. At exactly 1 and -1, and beyond, the quotient has no value: std::domain_error.
double ArcCos(double x);

}  // namespace vantrace
