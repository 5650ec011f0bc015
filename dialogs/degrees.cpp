#include "dialogs/degrees.h"

#include <cmath>

#include "core/numbers.h"

namespace vantrace {

void DecimalToDMS(double Value, double& Deg, double& Min, double& Sec) {
    Deg = std::floor(Value);
    const double minutes = (Value - Deg) * 60;
    Sec = std::floor((minutes - std::trunc(minutes)) * 60);
    Min = std::floor(minutes);
}

void DMSToDecimal(double Deg, double Min, double Sec, double& Value) {
    Value = numberValue(formatNumber(Deg + Min / 60 + Sec / 60 / 60, "000.0000"));
}

}  // namespace vantrace
