#include "orbit/sky/sky_body.h"

#include <cmath>

#include "orbit/earth/earth_rotation.h"
#include "orbit/elements/element_set.h"
#include "orbit/sky/moon.h"
#include "orbit/sky/nutation.h"
#include "orbit/sky/sun.h"
#include "orbit/sky/time_scales.h"

namespace vantrace {

namespace {

EclipticPosition position(SkyBody body, double centuries) {
    return body == SkyBody::sun ? sunPosition(centuries) : moonPosition(centuries);
}

Vector3 equatorial(const EclipticPosition& place, const Nutation& nutation) {
    const double longitude = place.longitudeRad + nutation.longitude;
    const double x = std::cos(place.latitudeRad) * std::cos(longitude);
    const double y = std::cos(place.latitudeRad) * std::sin(longitude);
    const double z = std::sin(place.latitudeRad);
    const double sinObliquity = std::sin(nutation.trueObliquity);
    const double cosObliquity = std::cos(nutation.trueObliquity);
    return place.distanceKm *
           Vector3{x, y * cosObliquity - z * sinObliquity, y * sinObliquity + z * cosObliquity};
}

}  // namespace

BodyState bodyState(SkyBody body, const Instant& utc) {
    // Half of the interval that the velocity is taken over; both bodies move evenly within it.
    constexpr double halfIntervalS = 60.0;
    constexpr double centurySeconds = 36525.0 * secondsPerDay;
    const double centuries = julianCenturiesTT(utc);
    const Nutation now = nutation(centuries);
    const EclipticPosition place = position(body, centuries);
    const Vector3 before = equatorial(position(body, centuries - halfIntervalS / centurySeconds), now);
    const Vector3 after = equatorial(position(body, centuries + halfIntervalS / centurySeconds), now);

    BodyState result;
    result.state.positionKm = equatorial(place, now);
    result.state.velocityKmS = (0.5 / halfIntervalS) * (after - before);
    result.siderealTimeRad = greenwichMeanSiderealTime(utc) + now.longitude * std::cos(now.trueObliquity);
    if (body == SkyBody::moon) {
        const double elongation = place.longitudeRad - sunPosition(centuries).longitudeRad;
        result.phaseAngleRad = elongation - twoPi * std::floor(elongation / twoPi) - pi;
    }
    return result;
}

}  // namespace vantrace
