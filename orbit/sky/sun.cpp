#include "orbit/sky/sun.h"

#include <cmath>
#include <span>

#include "orbit/elements/element_set.h"

namespace vantrace {

namespace {

/// amplitude * cos(phase + rate * millennia); amplitudes in 1e-8 rad or 1e-8 astronomical units.
struct SunTerm {
    double amplitude, phase, rate;
};

constexpr SunTerm longitude0[] = {
    {175347046, 0, 0},
    {3341656, 4.6692568, 6283.0758500},
    {34894, 4.62610, 12566.15170},
    {3497, 2.7441, 5753.3849},
    {3418, 2.8289, 3.5231},
    {3136, 3.6277, 77713.7715},
    {2676, 4.4181, 7860.4194},
    {2343, 6.1352, 3930.2097},
    {1324, 0.7425, 11506.7698},
    {1273, 2.0371, 529.6910},
    {1199, 1.1096, 1577.3435},
    {990, 5.233, 5884.927},
    {902, 2.045, 26.298},
    {857, 3.508, 398.149},
    {780, 1.179, 5223.694},
    {753, 2.533, 5507.553},
    {505, 4.583, 18849.228},
    {492, 4.205, 775.523},
    {357, 2.920, 0.067},
    {317, 5.849, 11790.629},
    {284, 1.899, 796.298},
    {271, 0.315, 10977.079},
    {243, 0.345, 5486.778},
    {206, 4.806, 2544.314},
    {205, 1.869, 5573.143},
    {202, 2.458, 6069.777},
    {156, 0.833, 213.299},
    {132, 3.411, 2942.463},
    {126, 1.083, 20.775},
    {115, 0.645, 0.980},
    {103, 0.636, 4694.003},
    {102, 0.976, 15720.839},
    {102, 4.267, 7.114},
    {99, 6.21, 2146.17},
    {98, 0.68, 155.42},
    {86, 5.98, 161000.69},
    {85, 1.30, 6275.96},
    {85, 3.67, 71430.70},
    {80, 1.81, 17260.15},
    {79, 3.04, 12036.46},
    {75, 1.76, 5088.63},
    {74, 3.50, 3154.69},
    {74, 4.68, 801.82},
    {70, 0.83, 9437.76},
    {62, 3.98, 8827.39},
    {61, 1.82, 7084.90},
    {57, 2.78, 6286.60},
    {56, 4.39, 14143.50},
    {56, 3.47, 6279.55},
    {52, 0.19, 12139.55},
    {52, 1.33, 1748.02},
    {51, 0.28, 5856.48},
    {49, 0.49, 1194.45},
};
constexpr SunTerm longitude1[] = {
    {628331966747.0, 0, 0},     {206059, 2.678235, 6283.075850},
    {4303, 2.6351, 12566.1517}, {425, 1.590, 3.523},
    {119, 5.796, 26.298},       {109, 2.966, 1577.344},
    {93, 2.59, 18849.23},       {72, 1.14, 529.69},
    {68, 1.87, 398.15},         {67, 4.41, 5507.55},
    {59, 2.89, 5223.69},        {56, 2.17, 155.42},
    {45, 0.40, 796.30},         {36, 0.47, 775.52},
    {29, 2.65, 7.11},
};
constexpr SunTerm longitude2[] = {
    {52919, 0, 0}, {8720, 1.0721, 6283.0758}, {309, 0.867, 12566.152}, {27, 0.05, 3.52}};
constexpr SunTerm longitude3[] = {{289, 5.844, 6283.076}, {35, 0, 0}, {17, 5.49, 12566.15}};

constexpr SunTerm latitude0[] = {{280, 3.199, 84334.662},
                                 {102, 5.422, 5507.553},
                                 {80, 3.88, 5223.69},
                                 {44, 3.70, 2352.87},
                                 {32, 4.00, 1577.34}};

constexpr SunTerm radius0[] = {
    {100013989, 0, 0},
    {1670700, 3.0984635, 6283.0758500},
    {13956, 3.05525, 12566.15170},
    {3084, 5.1985, 77713.7715},
    {1628, 1.1739, 5753.3849},
    {1576, 2.8469, 7860.4194},
    {925, 5.453, 11506.770},
    {542, 4.564, 3930.210},
    {472, 3.661, 5884.927},
    {346, 0.964, 5507.553},
    {329, 5.900, 5223.694},
    {307, 0.299, 5573.143},
    {243, 4.273, 11790.629},
    {212, 5.847, 1577.344},
    {186, 5.022, 10977.079},
    {175, 3.012, 18849.228},
    {110, 5.055, 5486.778},
};
constexpr SunTerm radius1[] = {{103019, 1.107490, 6283.075850}, {1721, 1.0644, 12566.1517}, {702, 3.142, 0}};
constexpr SunTerm radius2[] = {{4359, 5.7846, 6283.0758}, {124, 5.579, 12566.152}};

double sum(std::span<const SunTerm> terms, double millennia) {
    double total = 0.0;
    for (const SunTerm& term : terms) {
        total += term.amplitude * std::cos(term.phase + term.rate * millennia);
    }
    return total;
}

}  // namespace

EclipticPosition sunPosition(double centuries) {
    constexpr double unit = 1.0e-8;
    const double t = centuries / 10.0;
    const double earthLongitude =
        unit *
        (sum(longitude0, t) + t * (sum(longitude1, t) + t * (sum(longitude2, t) + t * (sum(longitude3, t)))));
    const double earthLatitude = unit * sum(latitude0, t);
    const double radius = unit * (sum(radius0, t) + t * (sum(radius1, t) + t * sum(radius2, t)));

    constexpr double arcSecond = radiansPerDegree / 3600.0;
    constexpr double aberration = 20.4898 * arcSecond;  // at one astronomical unit
    constexpr double toFk5 = -0.09033 * arcSecond;      // from the theory's equinox to that of the FK5
    const double longitude = earthLongitude + pi + toFk5 - aberration / radius;
    return {longitude - twoPi * std::floor(longitude / twoPi), -earthLatitude, radius * astronomicalUnitKm};
}

}  // namespace vantrace
