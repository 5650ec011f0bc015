#pragma once

#include "orbit/earth/look_angles.h"
#include "orbit/sin_cos.h"
#include "orbit/state_vector.h"

namespace vantrace {

/// How high a mover stands over the observer's horizon plane at a moment.
struct HorizonSample {
    double seconds = 0.0;  ///< from the mover's start
    StateVector state;
    SinCos greenwich{};  ///< sidereal time of Greenwich
    double upKm = 0.0;   ///< above the plane of the horizon
    double upRateKmS = 0.0;
    double sine = 0.0;  ///< of the elevation
    double sineRatePerS = 0.0;
};

/// Works out the heights from seconds, state and sidereal time.
void measureHeight(const Observer& observer, HorizonSample& sample);

/// The sample a moment away, by two-body motion: good to 1 m over two seconds.
HorizonSample shifted(const Observer& observer, const HorizonSample& sample, double seconds);

/// Seconds for which a mover on this path surely stays below the horizon, whatever its place on it: the
/// turning earth must first carry the observer close enough to the orbit's plane. 0 where it is close
/// already.
double secondsOutOfReach(const Observer& observer, const HorizonSample& sample, double apogeeKm);

}  // namespace vantrace
