// Angles in degrees, minutes and seconds, and as one number.
#pragma once

namespace vantrace {

/// Degrees, whole minutes and whole seconds of an angle, each rounded towards minus infinity: the sign stands
/// with the degrees alone, so that -33.5 is -34, 30, 0. Fractions of a second are lost.
void DecimalToDMS(double Value, double& Deg, double& Min, double& Sec);

/// The angle of such parts, to four decimals. Throws std::range_error for what is no finite number.
void DMSToDecimal(double Deg, double Min, double Sec, double& Value);

}  // namespace vantrace
