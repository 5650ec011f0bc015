#include "orbit/satcalc.h"

#include <cmath>
#include <optional>
#include <string>

#include "core/date_time.h"
#include "core/error_label.h"
#include "core/labels.h"
#include "core/numbers.h"
#include "core/program_state.h"
#include "core/services.h"
#include "orbit/angles.h"
#include "orbit/engine_access.h"
#include "orbit/next_pass.h"
#include "orbit/orbit_engine.h"

namespace vantrace {

namespace {

/// Depth of the sun below the horizon at which twilight ends, and at which it is dark enough to see a
/// satellite.
constexpr double twilightEndDeg = -18.0;
constexpr double darkEnoughDeg = -6.0;

constexpr double fullCircleDeg = 360.0;

double engineTimeOf(ProgramState& state, Services& services, ErrorLabel& label, const DateParts& local) {
    double dateTime = 0.0;
    double utc = 0.0;
    double engineTime = 0.0;
    label.step([&] { dateTime = packDateTime(local); });
    label.step([&] { utc = ToUTC(services.clock, dateTime); });
    label.step([&] { engineTime = engineOf(state).EngineJulianDate(utc); });
    return engineTime;
}

std::optional<TrackResult> trackOf(ProgramState& state, ErrorLabel& label, std::string_view name,
                                   double engineTime) {
    std::optional<TrackResult> track;
    label.step([&] { track = engineOf(state).EngineTrack(name, engineTime, 0, 0); });
    return track;
}

void storePosition(ProgramState& state, const TrackResult& track) {
    state.SatDescending = track.descending;
    state.SatRange = track.rangeKm;
    state.SatRangeRate = track.rangeRateKmS;
    state.SatHeight = track.heightKm;
    state.SatPhaseAngle = track.phaseAngleRad;
    state.SatAzimuth = RadToDeg(track.azimuthRad);
    state.SatElevation = RadToDeg(track.elevationRad);
    state.SatLongitude = fullCircleDeg - RadToDeg(track.longitudeRad);
    state.SatLatitude = RadToDeg(track.latitudeRad);
}

/// The part of the orbit that the tracked object has flown, 0 up to 1.
std::optional<double> orbitFraction(ProgramState& state, ErrorLabel& label) {
    std::optional<double> fraction;
    label.step([&] {
        const double wholeOrbits = std::floor(engineOf(state).EngineOrbitPhase());
        fraction = engineOf(state).EngineOrbitPhase() - wholeOrbits;
    });
    return fraction;
}

void storeOrbit(ProgramState& state, Services& services, ErrorLabel& label) {
    const std::optional<double> fraction = orbitFraction(state, label);
    label.step([&] {
        const Vector3 positionKm = engineOf(state).EngineStateVector().positionKm;
        state.SatVectorX = positionKm.x;
        state.SatVectorY = positionKm.y;
        state.SatVectorZ = positionKm.z;
    });
    if (fraction) {
        label.step([&] { state.SatPhase255 = numberValue(formatNumber(*fraction * 255.0, "0.00")); });
    }
    label.step([&] { state.SatOrbitNumber = std::to_string(engineOf(state).EngineOrbitNumber()); });
    if (fraction) {
        label.step([&] {
            state.SatPhase360 = formatNumber(*fraction * fullCircleDeg, "0.00", services.format.decimalMark);
        });
    }
}

/// Puts the engine's observer at a place: degrees north, degrees WEST, the height as the engine is to have
/// it.
void moveObserver(ProgramState& state, ErrorLabel& label, double latitudeDeg, double longitudeWestDeg,
                  double height) {
    label.step([&] { engineOf(state).EngineSetLatitude(latitudeDeg); });
    label.step([&] { engineOf(state).EngineSetLongitude(fullCircleDeg - longitudeWestDeg); });
    label.step([&] { engineOf(state).EngineSetHeight(height); });
}

/// Elevation of the sun in degrees where the engine's observer stands.
std::optional<double> sunElevation(ProgramState& state, ErrorLabel& label, double engineTime) {
    const std::optional<TrackResult> sun = trackOf(state, label, "sun", engineTime);
    if (!sun) {
        return std::nullopt;
    }
    return RadToDeg(sun->elevationRad);
}

void storeSightings(ProgramState& state, ErrorLabel& label, double engineTime) {
    moveObserver(state, label, state.SatLatitude, state.SatLongitude, state.SatHeight);
    const std::optional<double> sunAtSatellite = sunElevation(state, label, engineTime);
    if (sunAtSatellite) {
        state.SatSunlit = *sunAtSatellite > twilightEndDeg;
    }
    moveObserver(state, label, state.ObserverLatitude, state.ObserverLongitude, state.ObserverHeight);
    const std::optional<double> sunAtObserver = sunElevation(state, label, engineTime);
    if (sunAtObserver) {
        const bool isDark = *sunAtObserver >= twilightEndDeg && *sunAtObserver <= darkEnoughDeg;
        state.SatVisible = isDark && state.SatSunlit && state.SatElevation > 0.0;
    }
}

}  // namespace

void Satcalc(ProgramState& state, Services& services, std::string_view name, std::int16_t year,
             std::int16_t month, std::int16_t day, std::int16_t hour, std::int16_t minute,
             std::int16_t second, bool primary) {
    if (state.MainTag == "menu") {
        return;
    }
    ErrorLabel label(services, labels::globalSatcalc);
    const double engineTime = engineTimeOf(state, services, label, {year, month, day, hour, minute, second});
    if (const auto track = trackOf(state, label, name, engineTime)) {
        storePosition(state, *track);
    }
    storeOrbit(state, services, label);
    if (!primary || name != state.PrimarySatName) {
        return;
    }
    storeSightings(state, label, engineTime);
    if (!services.windows.isOnScreen("PassPrediction")) {
        NextPass(state, services, name, state.SatNextAOS, state.SatNextDuration, state.SatNextMaxElevation);
    }
}

}  // namespace vantrace
