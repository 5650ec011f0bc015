#include "orbit/angles.h"

#include <cmath>
#include <stdexcept>
#include <string>

namespace vantrace {

namespace {

/// The quotient that both inverse functions take the arc tangent of, without its sign.
double tangentOf(double x, const char* function) {
    const double squared = 1.0 - x * x;
    if (!(squared > 0.0)) {
        throw std::domain_error(std::string(function) + " has no value at " + std::to_string(x));
    }
    return x / std::sqrt(squared);
}

double signOf(double value) {
    if (value > 0.0) {
        return 1.0;
    }
    return value < 0.0 ? -1.0 : 0.0;
}

}  // namespace

double ArcTan2(double y, double x) {
    double angle = x == 0.0 ? (programPi / 2.0) * signOf(y) : std::atan(y / x);
    if (x < 0.0) {
        angle += programPi;
    }
    if (angle < 0.0) {
        angle += programTwoPi;
    }
    return angle;
}

double DegToRad(double degrees) {
    return (programPi / 180.0) * degrees;
}

double RadToDeg(double radians) {
    return (180.0 / programPi) * radians;
}

double ArcSin(double x) {
    return std::atan(tangentOf(x, "ArcSin"));
}

double ArcCos(double x) {
    return std::atan(-tangentOf(x, "ArcCos")) + 2.0 * std::atan(1.0);
}

}  // namespace vantrace
