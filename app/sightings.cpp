#include "app/sightings.h"

#include "orbit/earth/look_angles.h"
#include "orbit/elements/element_set.h"
#include "orbit/sky/sky_body.h"

namespace vantrace {

namespace {

constexpr double twilightEndDeg = -18.0;
constexpr double darkEnoughDeg = -6.0;

}  // namespace

double sunElevationDeg(const GeodeticPoint& place, const Instant& time) {
    const BodyState sun = bodyState(SkyBody::sun, time);
    return whereabouts(Observer(place), sun.state, sinCos(sun.siderealTimeRad)).elevationRad /
           radiansPerDegree;
}

bool isLit(const TrackResult& satellite, const Instant& time) {
    constexpr double kmPerMetre = 0.001;
    const GeodeticPoint place{satellite.latitudeRad, satellite.longitudeRad, satellite.heightKm * kmPerMetre};
    return sunElevationDeg(place, time) > twilightEndDeg;
}

bool isTwilight(double sunElevationDeg) {
    return sunElevationDeg >= twilightEndDeg && sunElevationDeg <= darkEnoughDeg;
}

Sighting sightingOf(OrbitEngine& engine, std::string_view name, const Pass& pass) {
    const auto isLitAt = [&](const Instant& time) { return isLit(engine.track(name, time), time); };
    Sighting sighting;
    sighting.sunlit = isLitAt(pass.rise.time) || isLitAt(pass.set.time);
    sighting.visible = sighting.sunlit && isTwilight(sunElevationDeg(engine.observer(), pass.rise.time));
    return sighting;
}

}  // namespace vantrace
