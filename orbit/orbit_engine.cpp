#include "orbit/orbit_engine.h"

#include <algorithm>
#include <cmath>

#include "core/date_time.h"
#include "core/numbers.h"
#include "core/texts.h"
#include "orbit/earth/earth_rotation.h"
#include "orbit/elements/element_catalogue.h"
#include "orbit/engine_error.h"
#include "orbit/passes/pass_list_text.h"

namespace vantrace {

namespace {

double finite(double value, std::string_view what) {
    if (!std::isfinite(value)) {
        throw EngineError(what, "is not a number");
    }
    return value;
}

void requireCalendarTime(std::string_view name, const Instant& time) {
    if (!isCalendarTime(time)) {
        throw EngineError(name, "the time is outside the years 1 to 9999");
    }
}

/// Moving south: the geocentric latitude falls.
bool isDescending(const StateVector& state) {
    const Vector3& r = state.positionKm;
    const Vector3& v = state.velocityKmS;
    return v.z * (r.x * r.x + r.y * r.y) < r.z * (r.x * v.x + r.y * v.y);
}

TrackResult trackResult(const Observer& observer, const StateVector& state, double siderealTime) {
    const Whereabouts where = whereabouts(observer, state, sinCos(siderealTime));
    TrackResult result;
    result.descending = isDescending(state);
    result.azimuthRad = where.azimuthRad;
    result.elevationRad = where.elevationRad;
    result.longitudeRad = where.longitudeRad;
    result.latitudeRad = where.latitudeRad;
    result.rangeKm = where.rangeKm;
    result.rangeRateKmS = where.rangeRateKmS;
    result.heightKm = where.heightKm;
    return result;
}

}  // namespace

std::optional<SkyBody> skyBodyOf(std::string_view name) {
    const std::string_view object = trimmed(name);
    if (object == "sun") {
        return SkyBody::sun;
    }
    return object == "moon" ? std::optional(SkyBody::moon) : std::nullopt;
}

OrbitEngine::OrbitEngine(const Clock* clock)
    : m_clock(clock), m_catalogue(std::make_unique<ElementCatalogue>()) {}

OrbitEngine::~OrbitEngine() = default;

void OrbitEngine::EngineSetKepPath(const std::string& folder) {
    EngineOrbitPhase();  // while the satellite of the last track is still there
    if (m_catalogue->refresh(folder)) {
        m_last.satellite = nullptr;
        m_lastAsked = nullptr;
        m_asked.clear();
        m_satellites.clear();
    }
}

std::int32_t OrbitEngine::EngineSatelliteCount() const {
    return m_catalogue->satelliteCount();
}

const std::string& OrbitEngine::EngineSatelliteList() const {
    return m_catalogue->nameList();
}

void OrbitEngine::EngineSetLatitude(double latitudeDeg) {
    setObserver(std::clamp(finite(latitudeDeg, "latitude"), -90.0, 90.0), m_longitudeDeg, m_heightM);
}

double OrbitEngine::EngineGetLongitude() const {
    return m_longitudeDeg;
}

void OrbitEngine::EngineSetLongitude(double longitudeDeg) {
    setObserver(m_latitudeDeg, finite(longitudeDeg, "longitude"), m_heightM);
}

void OrbitEngine::EngineSetHeight(double heightM) {
    setObserver(m_latitudeDeg, m_longitudeDeg, finite(heightM, "height"));
}

void OrbitEngine::setObserver(double latitudeDeg, double longitudeDeg, double heightM) {
    constexpr double metresPerKm = 1000.0;
    m_latitudeDeg = latitudeDeg;
    m_longitudeDeg = longitudeDeg;
    m_heightM = heightM;
    m_observer =
        Observer({latitudeDeg * radiansPerDegree, longitudeDeg * radiansPerDegree, heightM / metresPerKm});
}

Satellite& OrbitEngine::satelliteOf(std::string_view name, const Instant* time) {
    const std::string_view asked = trimmed(name);
    if (m_lastAsked != nullptr && *m_lastAsked == asked) {
        return *m_lastSatellite;
    }
    if (const auto known = m_asked.find(asked); known != m_asked.end()) {
        return remember(*known);
    }
    const CatalogueEntry* entry = m_catalogue->find(asked);
    if (entry == nullptr) {
        constexpr std::string_view reason = "unknown name, no element file holds it";
        throw time != nullptr ? EngineError(asked, *time, reason) : EngineError(asked, reason);
    }
    std::unique_ptr<Satellite>& satellite = m_satellites[entry->set->name];
    if (!satellite) {
        satellite = std::make_unique<Satellite>(*entry->set);
    }
    return remember(*m_asked.emplace(asked, satellite.get()).first);
}

Satellite& OrbitEngine::remember(const std::pair<const std::string, Satellite*>& asked) {
    m_lastAsked = &asked.first;
    m_lastSatellite = asked.second;
    return *m_lastSatellite;
}

TrackResult OrbitEngine::EngineTrack(std::string_view name, double engineTime, int /*reserved1*/,
                                     int /*reserved2*/) {
    return track(name, instantFromJulianDate(engineTime));
}

TrackResult OrbitEngine::track(std::string_view name, const Instant& time) {
    requireCalendarTime(name, time);
    const std::optional<SkyBody> body = skyBodyOf(name);
    const TrackResult result = body ? trackBody(*body, time) : trackSatellite(name, time);
    // An observer who stands beyond all sense is told; nobody could write such a distance down.
    if (!std::isfinite(result.rangeKm) || !std::isfinite(result.heightKm)) {
        throw EngineError(name, time, "the distance from the observer is no number");
    }
    return result;
}

TrackResult OrbitEngine::trackSatellite(std::string_view name, const Instant& time) {
    Satellite& satellite = satelliteOf(name, &time);
    Propagated propagated;
    const double minutes = minutesBetween(satellite.elements().epoch, time);
    const PropagationStatus status = satellite.propagator().propagate(minutes, propagated);
    if (status != PropagationStatus::ok) {
        throw EngineError(satellite.elements().name, time, reasonText(status));
    }
    m_last = {&satellite, propagated, 0.0, false};
    return trackResult(m_observer, propagated.state, greenwichMeanSiderealTime(time));
}

TrackResult OrbitEngine::trackBody(SkyBody body, const Instant& time) {
    const BodyState& state = bodyStateAt(body, time);
    m_last = LastTrack{};
    m_last.propagated.state = state.state;
    TrackResult result = trackResult(m_observer, state.state, state.siderealTimeRad);
    result.phaseAngleRad = state.phaseAngleRad;
    return result;
}

const BodyState& OrbitEngine::bodyStateAt(SkyBody body, const Instant& time) {
    // The sunlit test asks for one moment from two places.
    BodyMemory& memory = m_bodies[body == SkyBody::sun ? 0 : 1];
    if (memory.time.day != time.day || memory.time.fraction != time.fraction) {
        memory = {time, bodyState(body, time)};
    }
    return memory.state;
}

double OrbitEngine::EngineJulianDate(double dateTimeUtc) const {
    return julianDateOfDayNumberZero + finite(dateTimeUtc, "date-time");
}

std::int32_t OrbitEngine::EngineOrbitNumber() const {
    return toInteger32(std::floor(EngineOrbitPhase()));
}

double OrbitEngine::EngineOrbitPhase() const {
    if (!m_last.counted) {
        m_last.orbitCount = m_last.satellite->orbitCount(m_last.propagated);
        m_last.counted = true;
    }
    return m_last.orbitCount;
}

StateVector OrbitEngine::EngineStateVector() const {
    return m_last.propagated.state;
}

StateVector OrbitEngine::stateAt(std::string_view name, double minutesFromEpoch) {
    Satellite& satellite = satelliteOf(name, nullptr);
    Propagated propagated;
    const PropagationStatus status =
        satellite.propagator().propagate(finite(minutesFromEpoch, "minutes"), propagated);
    if (status != PropagationStatus::ok) {
        throw EngineError(satellite.elements().name,
                          plusSeconds(satellite.elements().epoch, minutesFromEpoch * 60.0),
                          reasonText(status));
    }
    return propagated.state;
}

std::unique_ptr<Mover> OrbitEngine::moverOf(std::string_view name, const Instant& from) {
    requireCalendarTime(name, from);
    if (const std::optional<SkyBody> body = skyBodyOf(name)) {
        return std::make_unique<SkyBodyMover>(*body, from);
    }
    return std::make_unique<SatelliteMover>(satelliteOf(name, &from), from);
}

PassSearchResult OrbitEngine::passes(std::string_view name, const Instant& from, double days) {
    const std::unique_ptr<Mover> mover = moverOf(name, from);
    PassSearchResult result = findPasses(*mover, m_observer, from, finite(days, "days"));
    if (!result.failureReason.empty() && result.passes.empty() &&
        secondsBetween(from, result.failureTime) <= 0.0) {
        throw EngineError(trimmed(name), from, result.failureReason);
    }
    return result;
}

EventSearchResult OrbitEngine::nextRise(std::string_view name, const Instant& from) {
    return findNextRise(*moverOf(name, from), m_observer, from);
}

EventSearchResult OrbitEngine::nextSet(std::string_view name, const Instant& from) {
    return findNextSet(*moverOf(name, from), m_observer, from);
}

namespace {

double eventDayNumber(std::string_view name, const EventSearchResult& event) {
    if (event.time) {
        return dayNumber(*event.time);
    }
    if (!event.failureReason.empty()) {
        throw EngineError(trimmed(name), event.failureTime, event.failureReason);
    }
    return OrbitEngine::noEventDayNumber();
}

}  // namespace

double OrbitEngine::noEventDayNumber() {
    return packDateTime({9999, 1, 1, 23, 59, 59});
}

double OrbitEngine::EngineNextAOS(std::string_view name, double timeUtc) {
    if (timeUtc == noEventDayNumber()) return noEventDayNumber();
    return eventDayNumber(name, nextRise(name, instantFromDayNumber(finite(timeUtc, "time"))));
}

double OrbitEngine::EngineNextLOS(std::string_view name, double timeUtc) {
    if (timeUtc == noEventDayNumber()) return noEventDayNumber();
    return eventDayNumber(name, nextSet(name, instantFromDayNumber(finite(timeUtc, "time"))));
}

std::string OrbitEngine::EnginePassList(std::string_view name, double startUtc, int /*mode*/, int spanDays,
                                        int /*reserved1*/, int /*reserved2*/) {
    const Instant from = instantFromDayNumber(finite(startUtc, "start"));
    return passListText(passes(name, from, spanDays), from, spanDays, localOffsetMinutes());
}

double OrbitEngine::localOffsetMinutes() const {
    return m_clock != nullptr ? -static_cast<double>(offsetMinutes(*m_clock)) : 0.0;
}

}  // namespace vantrace
