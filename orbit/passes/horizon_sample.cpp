#include "orbit/passes/horizon_sample.h"

#include <algorithm>
#include <cmath>

#include "orbit/earth/earth_rotation.h"
#include "orbit/sgp4/gravity.h"

namespace vantrace {

namespace {

/// The observer's zenith in the frame of the state.
Vector3 zenith(const Observer& observer, const SinCos& sidereal) {
    return {observer.cosLatitude() * sidereal.cos, observer.cosLatitude() * sidereal.sin,
            observer.sinLatitude()};
}

/// How fast a vector moves that turns with the earth.
Vector3 turning(const Vector3& v) {
    return {-earthRotationRadPerS * v.y, earthRotationRadPerS * v.x, 0.0};
}

}  // namespace

void measureHeight(const Observer& observer, HorizonSample& sample) {
    const SinCos sidereal = observer.localSiderealTime(sample.greenwich);
    const Vector3 up = zenith(observer, sidereal);
    const Vector3 site{observer.axisDistanceKm() * sidereal.cos, observer.axisDistanceKm() * sidereal.sin,
                       observer.equatorDistanceKm()};
    const Vector3 line = sample.state.positionKm - site;
    constexpr double smallestRange2 = 1.0e-12;
    const double rangeInverse = 1.0 / std::sqrt(std::max(dot(line, line), smallestRange2));
    sample.upKm = dot(line, up);
    sample.upRateKmS = dot(sample.state.velocityKmS, up) + dot(sample.state.positionKm, turning(up));
    sample.sine = sample.upKm * rangeInverse;
    const double rangeRate = dot(line, sample.state.velocityKmS - turning(site)) * rangeInverse;
    sample.sineRatePerS = (sample.upRateKmS - sample.sine * rangeRate) * rangeInverse;
}

HorizonSample shifted(const Observer& observer, const HorizonSample& sample, double seconds) {
    HorizonSample result;
    const Vector3& r = sample.state.positionKm;
    const Vector3& v = sample.state.velocityKmS;
    const double radius2 = dot(r, r);
    const Vector3 pull = (-wgs72::gravitationKm3S2 / (radius2 * std::sqrt(radius2))) * r;
    result.seconds = sample.seconds + seconds;
    result.state = {r + seconds * v + (0.5 * seconds * seconds) * pull, v + seconds * pull};
    result.greenwich = addAngles(sample.greenwich, sinCosSmall(earthRotationRadPerS * seconds));
    measureHeight(observer, result);
    return result;
}

double secondsOutOfReach(const Observer& observer, const HorizonSample& sample, double apogeeKm) {
    // Room for the perturbations of the path and for the turning of its plane (at most some 10 degrees a
    // day).
    constexpr double apogeeRoomKm = 50.0;
    constexpr double planeRoom = 1.05;
    constexpr double angleRoom = 0.005;
    const Vector3 up = zenith(observer, observer.localSiderealTime(sample.greenwich));
    const Vector3 normal = cross(sample.state.positionKm, sample.state.velocityKmS);
    const double centreDepthKm = observer.axisDistanceKm() * observer.cosLatitude() +
                                 observer.equatorDistanceKm() * observer.sinLatitude();
    const double reachCosine = centreDepthKm / (apogeeKm + apogeeRoomKm);
    const double offPlaneSine = std::abs(dot(normal, up)) / norm(normal);
    if (!(apogeeKm > 0.0) || offPlaneSine * offPlaneSine + reachCosine * reachCosine <= 1.0) {
        return 0.0;
    }
    if (reachCosine >= 1.0) {
        return 0.0;  // an observer above the path: no sense in skipping, the strides tell
    }
    const double gap = std::asin(std::min(1.0, offPlaneSine)) - std::acos(reachCosine) - angleRoom;
    return std::max(0.0, gap / (planeRoom * earthRotationRadPerS));
}

}  // namespace vantrace
