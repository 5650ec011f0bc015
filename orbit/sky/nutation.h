#pragma once

namespace vantrace {

/// Nutation and obliquity, rad. `centuries` are Julian centuries of TT since J2000.0.
struct Nutation {
    double longitude;
    double obliquity;      ///< change of the obliquity
    double trueObliquity;  ///< mean obliquity with its nutation
};

/// The largest terms of the IAU 1980 theory (Seidelmann 1982), to some 0.02 arc seconds; mean obliquity of
/// Lieske 1977.
Nutation nutation(double centuries);

}  // namespace vantrace
