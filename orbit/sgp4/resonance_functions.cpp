#include "orbit/sgp4/resonance_functions.h"

namespace vantrace {

namespace {

/// A cubic in the eccentricity.
struct Cubic {
    double c0, c1, c2, c3;
    double at(double e) const { return c0 + e * (c1 + e * (c2 + e * c3)); }
};

}  // namespace

EccentricityFunctions eccentricityFunctions(double e) {
    EccentricityFunctions g{};
    g.g201 = -0.306 - (e - 0.64) * 0.440;
    if (e <= 0.65) {
        g.g211 = Cubic{3.616, -13.2470, 16.2900, 0.0}.at(e);
        g.g310 = Cubic{-19.302, 117.3900, -228.4190, 156.5910}.at(e);
        g.g322 = Cubic{-18.9068, 109.7927, -214.6334, 146.5816}.at(e);
        g.g410 = Cubic{-41.122, 242.6940, -471.0940, 313.9530}.at(e);
        g.g422 = Cubic{-146.407, 841.8800, -1629.014, 1083.4350}.at(e);
        g.g520 = Cubic{-532.114, 3017.977, -5740.032, 3708.2760}.at(e);
    } else {
        g.g211 = Cubic{-72.099, 331.819, -508.738, 266.724}.at(e);
        g.g310 = Cubic{-346.844, 1582.851, -2415.925, 1246.113}.at(e);
        g.g322 = Cubic{-342.585, 1554.908, -2366.899, 1215.972}.at(e);
        g.g410 = Cubic{-1052.797, 4758.686, -7193.992, 3651.957}.at(e);
        g.g422 = Cubic{-3581.690, 16178.110, -24462.770, 12422.520}.at(e);
        g.g520 = e > 0.715 ? Cubic{-5149.66, 29936.92, -54087.36, 31324.56}.at(e)
                           : Cubic{1464.74, -4664.75, 3763.64, 0.0}.at(e);
    }
    if (e < 0.7) {
        g.g533 = Cubic{-919.22770, 4988.6100, -9064.7700, 5542.21}.at(e);
        g.g521 = Cubic{-822.71072, 4568.6173, -8491.4146, 5337.524}.at(e);
        g.g532 = Cubic{-853.66600, 4690.2500, -8624.7700, 5341.4}.at(e);
    } else {
        g.g533 = Cubic{-37995.780, 161616.52, -229838.20, 109377.94}.at(e);
        g.g521 = Cubic{-51752.104, 218913.95, -309468.16, 146349.42}.at(e);
        g.g532 = Cubic{-40023.880, 170470.89, -242699.48, 115605.82}.at(e);
    }
    return g;
}

InclinationFunctions inclinationFunctions(double sinI, double cosI) {
    const double sin2 = sinI * sinI;
    const double cos2 = cosI * cosI;
    InclinationFunctions f{};
    f.f220 = 0.75 * (1.0 + 2.0 * cosI + cos2);
    f.f221 = 1.5 * sin2;
    f.f321 = 1.875 * sinI * (1.0 - 2.0 * cosI - 3.0 * cos2);
    f.f322 = -1.875 * sinI * (1.0 + 2.0 * cosI - 3.0 * cos2);
    f.f441 = 35.0 * sin2 * f.f220;
    f.f442 = 39.3750 * sin2 * sin2;
    f.f522 = 9.84375 * sinI *
             (sin2 * (1.0 - 2.0 * cosI - 5.0 * cos2) + 0.33333333 * (-2.0 + 4.0 * cosI + 6.0 * cos2));
    f.f523 = sinI * (4.92187512 * sin2 * (-2.0 - 4.0 * cosI + 10.0 * cos2) +
                     6.56250012 * (1.0 + 2.0 * cosI - 3.0 * cos2));
    f.f542 = 29.53125 * sinI * (2.0 - 8.0 * cosI + cos2 * (-12.0 + 8.0 * cosI + 10.0 * cos2));
    f.f543 = 29.53125 * sinI * (-2.0 - 8.0 * cosI + cos2 * (12.0 + 8.0 * cosI - 10.0 * cos2));
    return f;
}

}  // namespace vantrace
